#include "widgets/zelvardoublespinbox.h"

#include "device/unitshelper.h"
#include "model/rawscale.h"

#include <cmath>

namespace {

// Keeps a limit that is a whole number of decimals from being taken for a little more.
constexpr double Noise = 1e-6;

} // namespace

ZelvarDoubleSpinBox::ZelvarDoubleSpinBox(QWidget *parent) : BoundSpinBox(parent)
{
    connect(this, SIGNAL(valueChanged(double)), this, SLOT(on_valueChanged(double)));
    setStyleSheet(QStringLiteral("QDoubleSpinBox:enabled { background-color:white; } "
                                 "QDoubleSpinBox:disabled { background-color:#ECEAE9; color: #5C5C61; }"));
    refreshBlank();
}

int ZelvarDoubleSpinBox::value() const
{
    return limits() ? qBound(limits()->rawMin, toRaw(model::RawScale(*limits()), shown()), limits()->rawMax) : 0;
}

void ZelvarDoubleSpinBox::on_deviceLoaded()
{
    takeDevice();
}

void ZelvarDoubleSpinBox::on_valueChanged(double)
{
    trackEdit();
}

// The decimals first: the range is rounded to those in force when it is set. Outward, because a limit rounded
// inward could neither be shown nor typed.
void ZelvarDoubleSpinBox::adaptToDevice()
{
    const double scale = std::pow(10.0, shownDecimals());
    const double minimum = units().toDisplay(limits()->physicalMin, fieldId());
    const double maximum = units().toDisplay(limits()->physicalMax, fieldId());
    setDecimals(shownDecimals());
    setRange(std::floor(minimum * scale + Noise) / scale, std::ceil(maximum * scale - Noise) / scale);
    if (hasUnit())
        setSingleStep(units().singleStep(fieldId()));
    // A field is never too narrow for its own limits, whatever width the form allows it at most.
    setMaximumWidth(qMax(maximumWidth(), minimumSizeHint().width()));
}

double ZelvarDoubleSpinBox::fromRaw(int raw) const
{
    return toShown(model::RawScale(*limits()), raw);
}
