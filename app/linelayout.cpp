#include "app/linelayout.h"

#include <QStyle>
#include <QWidget>

#include <algorithm>
#include <vector>

void LineLayout::setGeometry(const QRect &place)
{
    QHBoxLayout::setGeometry(place);
    if (place.width() < sizeHint().width())
        share(contentsRect());
}

/** Each text gets what it wants, but no more than a width that is the same for all long ones. */
void LineLayout::share(const QRect &place)
{
    std::vector<QLayoutItem *> elastic;
    int room = place.width() + spacing();
    for (int i = 0; i < count(); ++i) {
        QLayoutItem *item = itemAt(i);
        if (item->isEmpty())
            continue;
        room -= spacing();
        if (item->minimumSize().width() < item->sizeHint().width())
            elastic.push_back(item);
        else
            room -= item->sizeHint().width();
    }
    std::sort(elastic.begin(), elastic.end(), [](const QLayoutItem *one, const QLayoutItem *other) {
        return one->sizeHint().width() < other->sizeHint().width();
    });
    int left = int(elastic.size());
    for (QLayoutItem *item : elastic) {
        const int width = std::clamp(room / left--, 0, item->sizeHint().width());
        room -= width;
        item->setGeometry({item->geometry().topLeft(), QSize(width, item->geometry().height())});
    }
    lineUp(place);
}

/** Moves what is shown to follow one another, as wide as it is. */
void LineLayout::lineUp(const QRect &place)
{
    int x = place.left();
    for (int i = 0; i < count(); ++i) {
        QLayoutItem *item = itemAt(i);
        if (item->isEmpty())
            continue;
        const QRect moved(QPoint(x, item->geometry().top()), item->geometry().size());
        item->setGeometry(QStyle::visualRect(parentWidget()->layoutDirection(), place, moved));
        x += moved.width() + spacing();
    }
}
