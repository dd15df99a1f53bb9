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
    /** @p ours against @p baseline, for information. */
    static Figure information(const QString &name, double ours, double baseline, const QString &unit);
    /** @p ours itself, in @p unit, must be @p limit at most. */
    static Figure absolute(const QString &name, double ours, const QString &unit, double limit);

    /** The same, which must not exceed @p ratio either, the one of the day when it was last looked at. */
    Figure watchedAt(double ratio) const;

    bool isMet() const;
    /** Whether it is watched and the ratio is now worse than noise explains. */
    bool isWorse() const;
    /** Figure, ours, baseline, ratio, limit, met? */
    QStringList cells() const;

private:
    enum class Limit {
        RatioAtMost,
        RatioAtLeast,
        None,
        ValueAtMost,
    };

    Figure(Limit kind, const QString &name, double ours, double baseline, const QString &unit, double limit);
    double compared() const;
    QString limitText() const;

    Limit m_kind;
    QString m_name;
    double m_ours;
    double m_baseline; ///< 0 for Limit::ValueAtMost
    QString m_unit;
    double m_limit;
    double m_watchedRatio = 0.0; ///< 0 while nobody watches
};

using Figures = std::vector<Figure>;

/** @p figures as a table that reads well both on a terminal and as Markdown. */
QString tableOf(const Figures &figures);
