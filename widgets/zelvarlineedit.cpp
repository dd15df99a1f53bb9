#include "widgets/zelvarlineedit.h"

#include "model/rawscale.h"

#include <QHelpEvent>
#include <QLocale>
#include <QStyleOptionFrame>
#include <QStylePainter>
#include <QToolTip>

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

QString ZelvarLineEdit::storedText() const
{
    return stored();
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

bool ZelvarLineEdit::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip || !fitted().isCut)
        return BoundInput::event(event);
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), text() + QLatin1Char('\n') + toolTip(), this);
    return true;
}

// Qt scrolls a text that has no room to its end and leaves the beginning out, which reads like a smaller number.
void ZelvarLineEdit::paintEvent(QPaintEvent *event)
{
    ground::paint(*this, *event);
    QStyleOptionFrame option;
    initStyleOption(&option);
    QStylePainter painter(this);
    painter.drawPrimitive(QStyle::PE_PanelLineEdit, option);
    painter.setPen(option.palette.color(QPalette::Text));
    fitted().draw(painter, textRoom(), int(Qt::AlignVCenter | alignment()));
}

QRect ZelvarLineEdit::textRoom() const
{
    constexpr int Gap = 2; // pixels, as Qt leaves between frame and text
    QStyleOptionFrame option;
    initStyleOption(&option);
    return style()->subElementRect(QStyle::SE_LineEditContents, &option, this).adjusted(Gap, 0, -Gap, 0);
}

FittedText ZelvarLineEdit::fitted() const
{
    return fittedText(font(), text(), textRoom().size());
}
