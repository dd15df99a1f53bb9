#pragma once

#include "bench/measuring.h"

#include <QString>
#include <QStringList>

#include <vector>

/** One row of the table: what was measured, against what, and the limit that it has to keep. */
class Figure
{
public:
    /** @p ours over @p baseline must be @p limit at most. */
    static Figure atMost(const QString &name, double ours, double baseline, const QString &unit, double limit);
    /** @p ours over @p baseline must be @p limit at least. */
    static Figure atLeast(const QString &name, double ours, double baseline, const QString &unit, double limit);
    /** @p ours itself, in @p unit, must be @p limit at most. */
    static Figure absolute(const QString &name, double ours, const QString &unit, double limit);

    bool isMet() const;
    /** Figure, ours, baseline, ratio, limit, met? */
    QStringList cells() const;

private:
    enum class Limit {
        RatioAtMost,
        RatioAtLeast,
        ValueAtMost,
    };

    Figure(Limit kind, const QString &name, double ours, double baseline, const QString &unit, double limit);
    double compared() const;

    Limit m_kind;
    QString m_name;
    double m_ours;
    double m_baseline; ///< 0 for Limit::ValueAtMost
    QString m_unit;
    double m_limit;
};

using Figures = std::vector<Figure>;

/** @p figures as a table that reads well both on a terminal and as Markdown. */
QString tableOf(const Figures &figures);
