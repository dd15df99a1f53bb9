#pragma once

#include "dialogs/fieldtext.h"
#include "profile/restoration.h"

#include <QAbstractTableModel>
#include <QString>

#include <optional>
#include <vector>

namespace dialogs {

/** The fields of a profile beside what a servo has, a row each; in a restore they can be chosen. */
class ComparisonModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { FieldColumn, ServoColumn, FileColumn, ResultColumn };
    /** Whether the row's values are different, or were before a restore. */
    static constexpr int DifferentRole = Qt::UserRole;

    /**
     * @param text must outlive this object. @param fileTitle of the column beside the servo's.
     * @param isChoosable whether rows that differ have a check box.
     */
    ComparisonModel(const FieldText &text, QString fileTitle, bool isChoosable, QObject *parent);

    /** Compares @p file with @p servo. Whoever had been chosen or left out stays so. */
    void compare(const profile::Profile &servo, const profile::Profile &file);
    /** Chooses the fields that say where the servo is found on its bus, or leaves them out. */
    void setAddressChosen(bool isChosen);
    /** Shows what became of the fields that were chosen. */
    void showReport(const profile::RestoreReport &report);

    /** By ascending address; of those that differ. */
    std::vector<const model::Field *> chosenFields() const;
    int differenceCount() const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

Q_SIGNALS:
    void chosenChanged();

private:
    struct Row
    {
        profile::Pair pair;
        bool isChosen;
        std::optional<profile::RestoredField> result;

        bool isDifferent() const { return !pair.isEqual(); }
    };

    QString textOf(const Row &row, int column) const;
    QString valueText(const Row &row, qint32 raw, qint32 other) const;
    QString resultText(const Row &row) const;

    const FieldText &m_text;
    const QString m_fileTitle;
    const bool m_isChoosable;
    std::vector<Row> m_rows;
    bool m_hasResults = false;
};

} // namespace dialogs
