#include "widgets/zelvarcheckbox.h"

#include "widgets/checkboxlook.h"

namespace {

constexpr char LockedTextColor[] = "#9F9E9E";
constexpr char TextColor[] = "#51514F";
constexpr int TextColorLength = sizeof TextColor - 1;

/** Where the "#" of the first "color:#4d4c4c;" is, with or without a blank; -1 when there is none. A regular expression
 *  would take a third of a megabyte, which nothing else in the program needs. */
int textColorAt(const QString &styleSheet)
{
    for (int at = styleSheet.indexOf(QLatin1Char('#')); at >= 0; at = styleSheet.indexOf(QLatin1Char('#'), at + 1)) {
        const QStringRef before = styleSheet.leftRef(at);
        const bool isTextColor = before.endsWith(QLatin1String("color:")) || before.endsWith(QLatin1String("color: "));
        if (isTextColor && styleSheet.midRef(at + TextColorLength, 1) == QLatin1String(";"))
            return at;
    }
    return -1;
}

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
    const int colorAt = textColorAt(styleSheet());
    if (colorAt >= 0) {
        QString recoloured = styleSheet();
        recoloured.replace(colorAt, TextColorLength,
                           QLatin1String(isLocked() && disabled ? LockedTextColor : TextColor));
        if (recoloured != styleSheet())
            setStyleSheet(recoloured);
    }
    setDisabled(disabled);
}
