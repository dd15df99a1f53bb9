#include "widgets/zelvarstatuscheckbox.h"

#include "widgets/checkboxlook.h"

ZelvarStatusCheckBox::ZelvarStatusCheckBox(QWidget *parent) : QCheckBox(parent) {}

void ZelvarStatusCheckBox::setText(const QString &text)
{
    QCheckBox::setText(text);
    refreshLook();
}

// Every reply sets every status, so a status that is shown already must cost nothing.
void ZelvarStatusCheckBox::setStatus(bool on)
{
    if (on == isChecked())
        return;
    setChecked(on);
    refreshLook();
}

void ZelvarStatusCheckBox::connected()
{
    m_connected = true;
    refreshLook();
}

void ZelvarStatusCheckBox::disconnected()
{
    m_connected = false;
    setStatus(false);
    refreshLook();
}

void ZelvarStatusCheckBox::refreshLook()
{
    const QString look =
        isChecked() && m_connected ? checkboxlook::alarm(*this, text()) : checkboxlook::quiet(*this, text());
    if (look != styleSheet())
        setStyleSheet(look);
}
