#include "widgets/fieldmark.h"

#include <QEvent>
#include <QPainter>
#include <QPainterPath>
#include <QStyle>

namespace {

// Told apart by their shapes, too: a filled corner and an open ring. Both are dark enough on white and on grey.
constexpr QRgb ChangedColor = 0xff0b57a4;
constexpr QRgb PendingColor = 0xff9a5200;

// Small enough to leave the text beside it alone, large enough to be seen.
constexpr int PartOfHeight = 3;
constexpr int LeastSide = 7;    // pixels
constexpr int GreatestSide = 9; // pixels
constexpr double RingWidth = 1.5;

} // namespace

FieldMark::FieldMark(QWidget &control) : QWidget(&control), m_control(control)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    control.installEventFilter(this);
    place();
    show();
}

void FieldMark::mark(Kind kind, const QString &text)
{
    m_kind = kind;
    setAccessibleName(text);
    update();
}

bool FieldMark::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize)
        place();
    return QWidget::eventFilter(watched, event);
}

void FieldMark::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (layoutDirection() == Qt::RightToLeft) {
        painter.translate(width(), 0);
        painter.scale(-1, 1);
    }
    if (m_kind == Kind::Pending) {
        painter.setPen(QPen(QColor(PendingColor), RingWidth));
        const double diameter = width() - 2 * RingWidth;
        painter.drawEllipse(QRectF(RingWidth / 2, RingWidth / 2, diameter, diameter));
        return;
    }
    QPainterPath corner;
    corner.lineTo(width(), 0);
    corner.lineTo(0, height());
    painter.fillPath(corner, QColor(ChangedColor));
}

void FieldMark::place()
{
    const int side = qBound(LeastSide, m_control.height() / PartOfHeight, GreatestSide);
    setGeometry(QStyle::visualRect(m_control.layoutDirection(), m_control.rect(), QRect(0, 0, side, side)));
    raise();
}
