#include "app/elidedlabel.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOption>

namespace {

/** Characters of average width that one is as wide as at most, so that a long text leaves place for its neighbours. */
constexpr int MostCharacters = 80;

} // namespace

ElidedLabel::ElidedLabel(QWidget *parent) : QLabel(parent)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

QSize ElidedLabel::sizeHint() const
{
    const QFontMetrics metrics(font());
    const int most = MostCharacters * metrics.averageCharWidth();
    return {qMin(metrics.horizontalAdvance(text()) + 1, most), metrics.height()};
}

QSize ElidedLabel::minimumSizeHint() const
{
    return {0, sizeHint().height()}; // what is more important takes all of the place if it must
}

void ElidedLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, width());
    style()->drawItemText(&painter, rect(), int(Qt::AlignLeft | Qt::AlignVCenter), palette(), isEnabled(), shown,
                          foregroundRole());
}
