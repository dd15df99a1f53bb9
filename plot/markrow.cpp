#include "plot/markrow.h"

#include <QPainter>

#include <algorithm>

namespace plot {

namespace {

constexpr int Gap = 8; ///< pixels

} // namespace

MarkRow::MarkRow(QWidget *parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("plotMarks"));
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void MarkRow::setMarks(std::vector<Mark> marks)
{
    m_marks = std::move(marks);
    update();
}

QSize MarkRow::sizeHint() const
{
    return {0, fontMetrics().height() + 2};
}

void MarkRow::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    int free = 0; // from here on there is no text yet
    for (std::size_t i = 0; i < m_marks.size(); ++i) {
        const Mark &mark = m_marks[i];
        const bool isLast = i + 1 == m_marks.size();
        const int textWidth = fontMetrics().horizontalAdvance(mark.text) + Gap;
        // What has just happened stands at the right edge, where a text has no room behind its line.
        const int left = isLast ? std::max(free, std::min(mark.place, width() - textWidth)) : mark.place;
        const int room = std::min((isLast ? width() : m_marks[i + 1].place) - left, textWidth);
        const QString text =
            room < textWidth ? fontMetrics().elidedText(mark.text, Qt::ElideRight, room - Gap) : mark.text;
        painter.setPen(mark.color);
        painter.drawText(left, fontMetrics().ascent() + 1, text);
        free = left + room;
    }
}

} // namespace plot
