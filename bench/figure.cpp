#include "bench/figure.h"

#include <algorithm>
#include <cmath>

namespace {

const QStringList Headings{QStringLiteral("figure"), QStringLiteral("ours"),  QStringLiteral("baseline"),
                           QStringLiteral("ratio"),  QStringLiteral("limit"), QStringLiteral("met?")};

/** Three digits that count, as far as there is a point to put them behind. */
QString shortNumber(double number)
{
    const int digitsBefore =
        std::abs(number) < 1.0 ? 1 : static_cast<int>(std::floor(std::log10(std::abs(number)))) + 1;
    return QString::number(number, 'f', std::max(0, 3 - digitsBefore));
}

QString line(const QStringList &cells, const std::vector<int> &widths)
{
    QString text = QStringLiteral("|");
    for (int column = 0; column < cells.size(); ++column)
        text += QStringLiteral(" %1 |").arg(cells[column], column == 0 ? -widths[0] : widths[std::size_t(column)]);
    return text + QLatin1Char('\n');
}

} // namespace

Figure::Figure(Limit kind, const QString &name, double ours, double baseline, const QString &unit, double limit)
    : m_kind(kind), m_name(name), m_ours(ours), m_baseline(baseline), m_unit(unit), m_limit(limit)
{
}

Figure Figure::atMost(const QString &name, double ours, double baseline, const QString &unit, double limit)
{
    return {Limit::RatioAtMost, name, ours, baseline, unit, limit};
}

Figure Figure::atLeast(const QString &name, double ours, double baseline, const QString &unit, double limit)
{
    return {Limit::RatioAtLeast, name, ours, baseline, unit, limit};
}

Figure Figure::information(const QString &name, double ours, double baseline, const QString &unit)
{
    return {Limit::None, name, ours, baseline, unit, 0.0};
}

Figure Figure::watchedAt(double ratio) const
{
    Figure watched = *this;
    watched.m_watchedRatio = ratio;
    return watched;
}

Figure Figure::absolute(const QString &name, double ours, const QString &unit, double limit)
{
    return {Limit::ValueAtMost, name, ours, 0.0, unit, limit};
}

double Figure::compared() const
{
    return m_kind == Limit::ValueAtMost ? m_ours : m_ours / m_baseline;
}

bool Figure::isMet() const
{
    return m_kind == Limit::None || (m_kind == Limit::RatioAtLeast ? compared() >= m_limit : compared() <= m_limit);
}

bool Figure::isWorse() const
{
    constexpr double Tolerance = 1.05;
    return m_watchedRatio > 0.0 && compared() > m_watchedRatio * Tolerance;
}

QString Figure::limitText() const
{
    switch (m_kind) {
    case Limit::RatioAtMost:
        return QString::fromUtf8("≤ ") + QString::number(m_limit, 'f', 2);
    case Limit::RatioAtLeast:
        return QString::fromUtf8("≥ ") + QString::number(m_limit, 'f', 2);
    case Limit::ValueAtMost:
        return QString::fromUtf8("≤ ") + QString::number(m_limit) + QLatin1Char(' ') + m_unit;
    case Limit::None:
        return QStringLiteral("-");
    }
    Q_UNREACHABLE();
}

QStringList Figure::cells() const
{
    const auto withUnit = [this](double value) { return shortNumber(value) + QLatin1Char(' ') + m_unit; };
    const bool isRatio = m_kind != Limit::ValueAtMost;
    const QString none = QStringLiteral("-");
    return {m_name,
            withUnit(m_ours),
            isRatio ? withUnit(m_baseline) : none,
            isRatio ? QString::number(compared(), 'f', 2) : none,
            limitText(),
            m_kind == Limit::None ? none
            : isMet()             ? QStringLiteral("yes")
                                  : QStringLiteral("NO")};
}

QString tableOf(const Figures &figures)
{
    std::vector<QStringList> rows{Headings};
    for (const Figure &figure : figures)
        rows.push_back(figure.cells());
    std::vector<int> widths(static_cast<std::size_t>(Headings.size()), 0);
    for (const QStringList &row : rows) {
        for (std::size_t column = 0; column < widths.size(); ++column)
            widths[column] = std::max(widths[column], row[int(column)].size());
    }
    QString table = line(rows.front(), widths);
    QStringList rules;
    for (std::size_t column = 0; column < widths.size(); ++column)
        rules.append(QString(widths[column] - (column == 0 ? 0 : 1), QLatin1Char('-')) +
                     (column == 0 ? QString() : QStringLiteral(":")));
    table += line(rules, widths);
    for (std::size_t row = 1; row < rows.size(); ++row)
        table += line(rows[row], widths);
    return table;
}
