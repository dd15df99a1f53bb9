#pragma once

#include "widgets/boundspinbox.h"

#include <QSpinBox>

/** A field shown as an integer in the display unit. Raw 0 is at the physical minimum, whatever the raw
 * minimum. */
class ZelvarSpinBox : public BoundSpinBox<QSpinBox, int>
{
    Q_OBJECT

public:
    explicit ZelvarSpinBox(QWidget *parent = nullptr);

    int value() const override;

Q_SIGNALS:
    void setIsDirty(bool dirty) override;

public Q_SLOTS:
    void on_deviceLoaded();
    void on_valueChanged(int value);

protected:
    void adaptToDevice() override;
    int fromRaw(int raw) const override;
};
