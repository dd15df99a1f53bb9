#include "plot/markrow.h"

#include <QPainter>

#include <algorithm>

namespace plot {

namespace {

constexpr int LongestText = 240; ///< pixels
constexpr int Gap = 8;

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
    for (std::size_t i = 0; i < m_marks.size(); ++i) {
        const Mark &mark = m_marks[i];
        const int next = i + 1 < m_marks.size() ? m_marks[i + 1].place : width();
        const int room = std::min(next - mark.place - Gap, LongestText);
        painter.setPen(mark.color);
        painter.drawText(mark.place, fontMetrics().ascent() + 1,
                         fontMetrics().elidedText(mark.text, Qt::ElideRight, std::max(room, 0)));
    }
}

} // namespace plot
