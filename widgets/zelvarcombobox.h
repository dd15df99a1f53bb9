#pragma once

#include "widgets/boundinput.h"
#include "widgets/fittedtext.h"

#include <QComboBox>

class QListView;
class QStyleOptionComboBox;

/**
 * A field whose raw value is an index into the form's list. The last entry is the placeholder; it is hidden
 * and cannot be chosen while the link is up.
 */
class ZelvarComboBox : public BoundInput<QComboBox, int>
{
    Q_OBJECT

public:
    explicit ZelvarComboBox(QWidget *parent = nullptr);

    int value() const override;
    void showPopup() override;

Q_SIGNALS:
    void setIsDirty(bool dirty) override;

public Q_SLOTS:
    void on_deviceLoaded();
    void on_currentIndexChanged(int value);

protected:
    int shown() const override;
    QString storedText() const override;
    void display(const int &index) override;
    int fromRaw(int raw) const override;
    int placeholder() const override;
    bool isEdited() const override;
    void adaptToLink() override;
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QRect textRoom(const QStyleOptionComboBox &option) const;
    FittedText fitted(const QStyleOptionComboBox &option) const;

    QListView *m_list;
};
