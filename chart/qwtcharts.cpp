#include "chart/qwtcharts.h"

#include "chart/qwtchart.h"

#include <QBuffer>
#include <QPainter>
#include <QSvgGenerator>

namespace chart {

Chart *QwtCharts::makeChart(const Look &look, QWidget *parent) const
{
    return new QwtChart(look, parent);
}

QByteArray QwtCharts::svg(QWidget &widget, const QString &title) const
{
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    QSvgGenerator generator;
    generator.setOutputDevice(&file);
    generator.setResolution(widget.logicalDpiX()); // else texts are smaller than on the screen
    generator.setSize(widget.size());
    generator.setViewBox(widget.rect());
    generator.setTitle(title);
    QPainter painter(&generator);
    widget.render(&painter);
    painter.end();
    return file.data();
}

} // namespace chart
