#include "device/statushelper.h"

#include <QWidget>

#include <limits>

namespace {

// The sign bit of the error byte.
constexpr qint8 AlertBit = std::numeric_limits<qint8>::min();

struct StatusRow
{
    qint8 shownFor;
    const char *objectName;
};

// clang-format off
constexpr StatusRow StatusRows[] = {
    {1,        "processStatusCheckBox"},
    {2,        "instructionStatusCheckBox"},
    {3,        "checksumStatusCheckBox"},
    {4,        "rangeStatusCheckBox"},
    {5,        "dataLengthStatusCheckBox"},
    {6,        "dataLimitStatusCheckBox"},
    {7,        "accessStatusCheckBox"},
    {AlertBit, "alertStatusCheckBox"},
};
// clang-format on

bool isShown(qint8 shownFor, qint8 errorByte)
{
    return shownFor == AlertBit ? errorByte < 0 : errorByte == shownFor;
}

} // namespace

StatusHelper::StatusHelper(const QWidget *view)
{
    if (!view)
        return;
    for (const StatusRow &row : StatusRows) {
        auto *object = view->findChild<QObject *>(QLatin1String(row.objectName));
        m_boxes.push_back({row.shownFor, Tracked<IStatusIndicator>(object)});
    }
}

void StatusHelper::update(qint8 errorByte)
{
    for (const Box &box : m_boxes) {
        if (IStatusIndicator *indicator = box.indicator.get())
            indicator->setStatus(isShown(box.shownFor, errorByte));
    }
}
