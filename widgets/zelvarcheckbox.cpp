#include "widgets/zelvarcheckbox.h"

#include "widgets/checkboxlook.h"

#include <QRegularExpression>

namespace {

constexpr char LockedTextColor[] = "#9F9E9E";
constexpr char TextColor[] = "#51514F";
constexpr int TextColorLength = sizeof TextColor - 1;

} // namespace

ZelvarCheckBox::ZelvarCheckBox(QWidget *parent) : BoundInput(parent)
{
    connect(this, SIGNAL(toggled(bool)), this, SLOT(on_toggled(bool)));
}

void ZelvarCheckBox::setText(const QString &text)
{
    setStyleSheet(isChecked() && isConnected() ? checkboxlook::checkableAlarm(*this, text)
                                               : checkboxlook::checkable(*this, text));
    QCheckBox::setText(text);
}

int ZelvarCheckBox::value() const
{
    return isChecked() ? 1 : 0;
}

void ZelvarCheckBox::on_deviceLoaded()
{
    takeDevice();
}

void ZelvarCheckBox::on_toggled(bool)
{
    trackEdit();
}

bool ZelvarCheckBox::shown() const
{
    return isChecked();
}

QString ZelvarCheckBox::storedText() const
{
    return stored() ? tr("on") : tr("off");
}

void ZelvarCheckBox::display(const bool &on)
{
    setChecked(on);
}

bool ZelvarCheckBox::fromRaw(int raw) const
{
    return raw != 0;
}

void ZelvarCheckBox::disable(bool disabled)
{
    static const QRegularExpression textColorRule(QStringLiteral("(color: ?#)(......);"));
    const QRegularExpressionMatch rule = textColorRule.match(styleSheet());
    if (rule.hasMatch()) {
        QString recoloured = styleSheet();
        recoloured.replace(rule.capturedStart(2) - 1, TextColorLength,
                           QLatin1String(isLocked() && disabled ? LockedTextColor : TextColor));
        if (recoloured != styleSheet())
            setStyleSheet(recoloured);
    }
    setDisabled(disabled);
}
