#include "widgets/zelvarlineedit.h"

#include "model/rawscale.h"

#include <QLocale>

namespace {

constexpr qint32 ModelNumberId = 17;

} // namespace

ZelvarLineEdit::ZelvarLineEdit(QWidget *parent) : BoundInput(parent)
{
    setStyleSheet(QStringLiteral("QLineEdit:enabled { background-color:white; } "
                                 "QLineEdit:disabled { background-color:#ECEAE9; color: #5C5C61; }"));
}

void ZelvarLineEdit::setEditable(bool enable)
{
    if (enable)
        storeShown();
    BoundInput::setEditable(enable);
}

int ZelvarLineEdit::value() const
{
    return text().toInt();
}

void ZelvarLineEdit::on_deviceLoaded()
{
    takeDevice();
}

QString ZelvarLineEdit::shown() const
{
    return text();
}

void ZelvarLineEdit::display(const QString &text)
{
    setText(text);
}

QString ZelvarLineEdit::fromRaw(int raw) const
{
    if (isNumber())
        return locale().toString(toShown(model::RawScale(*limits()), raw), 'f', shownDecimals());
    if (fieldId() == ModelNumberId)
        return QStringLiteral("%1%2%3").arg(raw / 256).arg(locale().decimalPoint()).arg(raw % 256);
    return QString::number(raw);
}
