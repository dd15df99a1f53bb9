#include "widgets/typednumber.h"

#include <cmath>

namespace {

bool isDecimalSign(QChar character)
{
    return character == QLatin1Char('.') || character == QLatin1Char(',');
}

} // namespace

void typednumber::adoptDecimalSign(QString &text, int &position, const QLocale &locale)
{
    const int last = qMax(text.lastIndexOf(QLatin1Char('.')), text.lastIndexOf(QLatin1Char(',')));
    QString adopted;
    int moved = position;
    for (int i = 0; i < text.size(); ++i) {
        if (i == last)
            adopted += locale.decimalPoint();
        else if (!isDecimalSign(text[i]))
            adopted += text[i];
        else if (i < position)
            --moved;
    }
    text = adopted;
    position = moved;
}

std::optional<double> typednumber::parsed(QString text, const QLocale &locale)
{
    int position = 0;
    adoptDecimalSign(text, position, locale);
    bool isNumber = false;
    const double number = locale.toDouble(text.trimmed(), &isNumber);
    if (!isNumber || !std::isfinite(number))
        return std::nullopt;
    return number;
}
