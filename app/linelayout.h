#pragma once

#include <QHBoxLayout>

/**
 * A row in which the longest texts give way first when there is not enough place, so that short ones stay whole. A box
 * layout would take the same from each, and the short ones would be the first to be gone.
 */
class LineLayout : public QHBoxLayout
{
    Q_OBJECT

public:
    using QHBoxLayout::QHBoxLayout;

    void setGeometry(const QRect &place) override;

private:
    void share(const QRect &place);
    void lineUp(const QRect &place);
};
