#include "widgets/limitpairs.h"

#include "widgets/zelvardoublespinbox.h"

#include <QToolTip>

struct LimitPairs::Pair
{
    const char *lower;
    const char *upper;
    const char *objection;
};

// clang-format off
const LimitPairs::Pair LimitPairs::Pairs[] = {
    {"minVoltageLimitDoubleSpinBox", "maxVoltageLimitDoubleSpinBox",
     QT_TR_NOOP("The minimum voltage is above the maximum voltage: no supply is right for the servo then.")},
    {"clockwiseLimitDoubleSpinBox",  "counterClockwiseLimitDoubleSpinBox",
     QT_TR_NOOP("The clockwise limit is above the counter-clockwise limit: no position is allowed then.")},
};
// clang-format on

LimitPairs::LimitPairs(QWidget &view) : QObject(&view)
{
    for (const Pair &pair : Pairs) {
        auto *lower = view.findChild<ZelvarDoubleSpinBox *>(QLatin1String(pair.lower));
        auto *upper = view.findChild<ZelvarDoubleSpinBox *>(QLatin1String(pair.upper));
        if (!lower || !upper)
            continue;
        const QString objection = tr(pair.objection);
        for (const ZelvarDoubleSpinBox *limit : {lower, upper}) {
            connect(limit, qOverload<double>(&QDoubleSpinBox::valueChanged), this,
                    [=] { compare(*lower, *upper, objection); });
        }
    }
}

void LimitPairs::compare(ZelvarDoubleSpinBox &lower, ZelvarDoubleSpinBox &upper, const QString &objection)
{
    const bool isCrossed = lower.QDoubleSpinBox::value() > upper.QDoubleSpinBox::value();
    for (ZelvarDoubleSpinBox *limit : {&lower, &upper}) {
        limit->objectTo(isCrossed ? objection : QString());
        if (isCrossed && limit->isEnabled() && limit->hasFocus())
            QToolTip::showText(limit->mapToGlobal(QPoint(0, limit->height())), objection, limit);
    }
}
