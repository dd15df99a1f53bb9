#include "search/scanreport.h"

#include "search/searchhelper.h"

#include <algorithm>
#include <iterator>

namespace {

const QString Comma = QStringLiteral(", ");

QString listed(const QVector<int> &numbers)
{
    QStringList texts;
    for (const int number : numbers)
        texts.append(QString::number(number));
    return texts.join(Comma);
}

} // namespace

void ScanReport::addProbe(const QString &port, int baudRate, const QString &openError)
{
    if (!openError.isEmpty()) {
        if (!portErrors.contains(openError))
            portErrors.append(openError);
        return;
    }
    if (!ports.contains(port))
        ports.append(port);
    if (!baudRates.contains(baudRate))
        baudRates.append(baudRate);
}

QString ScanReport::text() const
{
    QStringList paragraphs{course() + QLatin1Char(' ') + result()};
    paragraphs += portErrors;
    if (!baudRates.isEmpty()) {
        paragraphs.append(
            tr("Asked: ids %1 to %2 at %3 baud on %4.")
                .arg(QString::number(lowerId), QString::number(upperId), listed(baudRates), ports.join(Comma)));
    }
    QVector<int> slow;
    std::copy_if(baudRates.begin(), baudRates.end(), std::back_inserter(slow),
                 [](int baudRate) { return !SearchHelper::isInTime(baudRate); });
    if (!slow.isEmpty()) {
        paragraphs.append(
            tr("At %1 baud, servos may need more than the %2 ms that each one is given and may have been "
               "missed. To make sure, choose the baud rate in the settings and connect to the servo's id.")
                .arg(listed(slow), QString::number(SearchHelper::AnswerTime.count())));
    }
    return paragraphs.join(QLatin1Char('\n'));
}

QString ScanReport::course() const
{
    if (skippedBaudRates == 0)
        return tr("The search is over.");
    return tr("The search was aborted after %1 of %2 baud rates.")
        .arg(triedBaudRates)
        .arg(triedBaudRates + skippedBaudRates);
}

QString ScanReport::result() const
{
    if (!foundIds.isEmpty())
        return tr("Servos found: %1.").arg(foundIds.size());
    return baudRates.isEmpty() ? tr("No servo was asked.") : tr("No servo answered.");
}
