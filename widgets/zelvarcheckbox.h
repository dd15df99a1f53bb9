#pragma once

#include "widgets/boundinput.h"

#include <QCheckBox>

/** A field that is on or off: raw 0 is unchecked, everything else checked. */
class ZelvarCheckBox : public BoundInput<QCheckBox, bool>
{
    Q_OBJECT

public:
    explicit ZelvarCheckBox(QWidget *parent = nullptr);

    /** Sets the caption and the look that goes with its width. */
    void setText(const QString &text);
    int value() const override;

Q_SIGNALS:
    void setIsDirty(bool dirty) override;

public Q_SLOTS:
    void on_deviceLoaded();
    void on_toggled(bool value);

protected:
    bool shown() const override;
    QString storedText() const override;
    void display(const bool &on) override;
    bool fromRaw(int raw) const override;
    /** Besides disabling, greys the caption: paler when the box is locked already. */
    void disable(bool disabled) override;
};
