#pragma once

#include "device/istatusindicator.h"
#include "device/tracked.h"

#include <vector>

class QWidget;

/** Shows the error byte of the latest reply in the edit view's status-packet boxes. GUI thread only. */
class StatusHelper
{
public:
    /** @param view the edit view, which stays its owner's; without one, updates are ignored. */
    explicit StatusHelper(const QWidget *view = nullptr);
    Q_DISABLE_COPY(StatusHelper)

    /**
     * Sets all boxes for @p errorByte. Numbers are compared as a whole: a number together with the alert
     * bit shows the alert only.
     */
    void update(qint8 errorByte);

private:
    struct Box
    {
        qint8 shownFor;
        Tracked<IStatusIndicator> indicator;
    };

    std::vector<Box> m_boxes;
};
