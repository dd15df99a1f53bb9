#pragma once

#include "widgets/boundspinbox.h"

#include <QDoubleSpinBox>

/** A field shown as a decimal number in the display unit. */
class ZelvarDoubleSpinBox : public BoundSpinBox<QDoubleSpinBox, double>
{
    Q_OBJECT

public:
    explicit ZelvarDoubleSpinBox(QWidget *parent = nullptr);

    /** Held inside the raw range: the shown range ends at the first decimal that reaches the field's limits. */
    int value() const override;

Q_SIGNALS:
    void setIsDirty(bool dirty) override;

public Q_SLOTS:
    void on_deviceLoaded();
    void on_valueChanged(double value);

protected:
    void adaptToDevice() override;
    double fromRaw(int raw) const override;
};
