#include "plot/legendrow.h"

#include <QPainter>

namespace plot {

namespace {

constexpr int SwatchWidth = 26;
constexpr int Gap = 5;
/** Room for a value: wider ones push what comes behind, which only two cursors with long numbers do. */
const QString WidestValue = QStringLiteral("-1602.211");

} // namespace

LegendRow::LegendRow(QWidget *parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void LegendRow::setEntries(std::vector<LegendEntry> entries)
{
    const auto isSame = [](const LegendEntry &one, const LegendEntry &other) {
        return one.name == other.name && one.value == other.value && one.pen == other.pen;
    };
    if (std::equal(entries.begin(), entries.end(), m_entries.begin(), m_entries.end(), isSame))
        return;
    m_entries = std::move(entries);
    update();
}

void LegendRow::setIndent(int pixels)
{
    m_indent = pixels;
    update();
}

QSize LegendRow::sizeHint() const
{
    return {0, fontMetrics().height() + 2};
}

QSize LegendRow::minimumSizeHint() const
{
    return sizeHint();
}

void LegendRow::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const int baseline = fontMetrics().ascent() + 1;
    int x = m_indent;
    for (const LegendEntry &entry : m_entries) {
        QPen swatch = entry.pen;
        swatch.setWidth(2);
        painter.setPen(swatch);
        painter.drawLine(x, height() / 2, x + SwatchWidth, height() / 2);
        x += SwatchWidth + Gap;
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(x, baseline, entry.name);
        x += fontMetrics().horizontalAdvance(entry.name) + 2 * Gap;
        const int valueWidth = fontMetrics().horizontalAdvance(entry.value);
        const int room = std::max(valueWidth, fontMetrics().horizontalAdvance(WidestValue));
        painter.drawText(x, baseline, entry.value);
        x += room + 4 * Gap;
    }
}

} // namespace plot
