#pragma once

#include "dialogs/fieldtext.h"
#include "profile/history.h"

#include <QAbstractTableModel>

#include <vector>

namespace dialogs {

/** What is kept of one servo, an entry a row, the newest first. Names and pins are edited in it. */
class HistoryModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column {
        TimeColumn, ///< local
        NameColumn,
        PinnedColumn,
        ChangeColumn, ///< against the entry before
        ColumnCount,
    };

    /** Both must outlive the model. */
    HistoryModel(const FieldText &text, profile::History &history, QObject *parent);
    ~HistoryModel() override;

    /** Shows what is kept of @p servo now. */
    void load(const profile::ServoKey &servo);
    /** Why names and pins could not be read, or the last one not kept; empty when all is well. */
    const QString &error() const { return m_error; }

    const profile::HistoryEntry &entry(int row) const { return m_listing.entries[std::size_t(row)]; }
    /** The row of the entry in @p file; -1 when there is none. */
    int rowOf(const QString &file) const;
    /** What the entry of @p row is called: its name, or its time without one. */
    QString title(int row) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;

    /** @p time as the user reads it, in local time. */
    static QString timeText(const QDateTime &time);

Q_SIGNALS:
    /** error() has another text. */
    void errorChanged();

private:
    QStringList changes(int row) const;
    QString changeText(int row) const;
    QVariant toolTip(const QModelIndex &index) const;
    bool accept(const QString &error);

    const FieldText &m_text;
    profile::History &m_history;
    profile::HistoryListing m_listing;
    std::vector<QStringList> m_changes; ///< of each row, a line each
    QString m_error;
};

} // namespace dialogs
