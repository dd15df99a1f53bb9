#include "widgets/zelvarspinbox.h"

#include "device/unitshelper.h"
#include "model/rawscale.h"

ZelvarSpinBox::ZelvarSpinBox(QWidget *parent) : BoundSpinBox(parent)
{
    connect(this, SIGNAL(valueChanged(int)), this, SLOT(on_valueChanged(int)));
    setStyleSheet(QStringLiteral("QSpinBox:enabled { background-color:white; } "
                                 "QSpinBox:disabled { background-color:#ECEAE9; color: #5C5C61; }"));
    refreshBlank();
}

int ZelvarSpinBox::value() const
{
    return limits() ? toRaw(model::RawScale::fromZero(*limits()), shown()) : 0;
}

void ZelvarSpinBox::on_deviceLoaded()
{
    takeDevice();
}

void ZelvarSpinBox::on_valueChanged(int)
{
    trackEdit();
}

void ZelvarSpinBox::adaptToDevice()
{
    setRange(static_cast<int>(units().toDisplay(limits()->physicalMin, fieldId())),
             static_cast<int>(units().toDisplay(limits()->physicalMax, fieldId())));
    if (hasUnit())
        setSingleStep(static_cast<int>(units().singleStep(fieldId())));
}

int ZelvarSpinBox::fromRaw(int raw) const
{
    return static_cast<int>(toShown(model::RawScale::fromZero(*limits()), raw));
}
