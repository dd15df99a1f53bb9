#pragma once

#include "widgets/boundinput.h"
#include "widgets/fittedtext.h"

#include <QLineEdit>

/**
 * A field shown as text in the form that goes with its field id; not for editing. A value is never cut while narrower
 * or smaller letters have room; what is cut even so is in the tool tip.
 */
class ZelvarLineEdit : public BoundInput<QLineEdit, QString>
{
    Q_OBJECT

public:
    explicit ZelvarLineEdit(QWidget *parent = nullptr);

    void setEditable(bool enable) override;
    /** The text read as a decimal integer; 0 when it is none. */
    int value() const override;

Q_SIGNALS:
    void setIsDirty(bool dirty) override;

public Q_SLOTS:
    void on_deviceLoaded();

protected:
    QString shown() const override;
    QString storedText() const override;
    void display(const QString &text) override;
    QString fromRaw(int raw) const override;
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QRect textRoom() const;
    FittedText fitted() const;
};
