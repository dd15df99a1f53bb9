#pragma once

#include "chart/chart.h"

#include <QObject>

namespace chart {

/** What the library has to offer, as Qt finds it. */
class QwtCharts final : public QObject, public Charts
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "com.ostravel.ZelvarServoManager.Charts")
    Q_INTERFACES(chart::Charts)

public:
    Chart *makeChart(const Look &look, QWidget *parent) const override;
    QByteArray svg(QWidget &widget, const QString &title) const override;
};

} // namespace chart
