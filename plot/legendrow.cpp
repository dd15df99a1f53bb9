#include "plot/legendrow.h"

#include <QPainter>

#include <algorithm>

namespace plot {

namespace {

constexpr int SwatchWidth = 26;
constexpr int Gap = 5;
constexpr int BetweenEntries = 4 * Gap;
/** Room for a value from the start. */
const QString UsualValue = QStringLiteral("-1602.21");
const QString Space = QStringLiteral("  ");

} // namespace

LegendRow::LegendRow(QWidget *parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void LegendRow::setEntries(std::vector<LegendEntry> entries)
{
    const auto isSame = [](const LegendEntry &one, const LegendEntry &other) {
        return one.name == other.name && one.value == other.value && one.difference == other.difference &&
               one.pen == other.pen;
    };
    if (std::equal(entries.begin(), entries.end(), m_entries.begin(), m_entries.end(), isSame))
        return;
    const auto hasSameParts = [](const LegendEntry &one, const LegendEntry &other) {
        return one.name == other.name && one.difference.isEmpty() == other.difference.isEmpty();
    };
    if (!std::equal(entries.begin(), entries.end(), m_entries.begin(), m_entries.end(), hasSameParts))
        m_rooms.assign(entries.size(), fontMetrics().horizontalAdvance(UsualValue));
    m_entries = std::move(entries);
    for (std::size_t i = 0; i < m_entries.size(); ++i)
        m_rooms[i] = std::max(m_rooms[i], valueWidth(m_entries[i]));
    update();
}

int LegendRow::valueWidth(const LegendEntry &entry) const
{
    return fontMetrics().horizontalAdvance(entry.value + Space + entry.difference);
}

/** The part of the names, from 0 to 1, that there is room for. */
double LegendRow::nameShare() const
{
    int names = 0;
    int others = m_indent;
    for (std::size_t i = 0; i < m_entries.size(); ++i) {
        names += fontMetrics().horizontalAdvance(m_entries[i].name);
        others += SwatchWidth + 3 * Gap + m_rooms[i] + (i > 0 ? BetweenEntries : 0);
    }
    return std::clamp(double(width() - others) / std::max(names, 1), 0.0, 1.0);
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
    const double share = nameShare();
    int x = m_indent;
    for (std::size_t i = 0; i < m_entries.size(); ++i) {
        const LegendEntry &entry = m_entries[i];
        QPen swatch = entry.pen;
        swatch.setWidth(2);
        painter.setPen(swatch);
        painter.drawLine(x, height() / 2, x + SwatchWidth, height() / 2);
        x += SwatchWidth + Gap;
        painter.setPen(palette().color(QPalette::WindowText));
        const int nameRoom = qRound(share * fontMetrics().horizontalAdvance(entry.name));
        painter.drawText(x, baseline,
                         share < 1 ? fontMetrics().elidedText(entry.name, Qt::ElideMiddle, nameRoom) : entry.name);
        x += nameRoom + 2 * Gap;
        painter.drawText(x, baseline, entry.value + Space + entry.difference);
        x += m_rooms[i] + BetweenEntries;
    }
}

} // namespace plot
