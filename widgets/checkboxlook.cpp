#include "widgets/checkboxlook.h"

#include "widgets/zelvarparametersgroupbox.h"

#include <QCheckBox>

namespace {

// The group's margins, the indicator and the room to its right.
constexpr int RoomBesideText = 40;

constexpr char AlarmColor[] = "#ff461d";
constexpr char QuietColor[] = "#eceae9";
constexpr char CheckedRule[] = " QCheckBox::indicator:checked { image: url(:/images/checkbox_checked.png); }";
constexpr char EnabledRule[] =
    " QCheckBox::indicator:enabled { border: 1px solid rgb(122,122,122); background: white; }";

int spacing(const QCheckBox &box, const QString &text)
{
    const auto *group = qobject_cast<const ZelvarParametersGroupBox *>(box.parentWidget());
    return group ? group->width() - box.fontMetrics().horizontalAdvance(text) - RoomBesideText : 0;
}

QString style(const QCheckBox &box, const QString &text, const char *indicatorColor)
{
    return QStringLiteral("QCheckBox{spacing:%1px;} QAbstractButton{ color:#4d4c4c; padding-right:2px; } "
                          "QCheckBox::indicator { width: 12px; height: 12px; background:%2; border-style: solid; "
                          "border: 1px solid #b8a692; border-radius: 3px; }")
        .arg(spacing(box, text))
        .arg(QLatin1String(indicatorColor));
}

} // namespace

QString checkboxlook::alarm(const QCheckBox &box, const QString &text)
{
    return style(box, text, AlarmColor);
}

QString checkboxlook::quiet(const QCheckBox &box, const QString &text)
{
    return style(box, text, QuietColor);
}

QString checkboxlook::checkable(const QCheckBox &box, const QString &text)
{
    return quiet(box, text) + QLatin1String(CheckedRule) + QLatin1String(EnabledRule);
}

QString checkboxlook::checkableAlarm(const QCheckBox &box, const QString &text)
{
    return alarm(box, text) + QLatin1String(EnabledRule);
}
