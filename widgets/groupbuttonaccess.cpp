#include "widgets/groupbuttonaccess.h"

#include "widgets/zelvargrouptoolbutton.h"

#include <QAccessibleWidget>

namespace {

class GroupButtonAccess : public QAccessibleWidget
{
public:
    explicit GroupButtonAccess(ZelvarGroupToolButton *button) : QAccessibleWidget(button, QAccessible::Button) {}

    QStringList actionNames() const override { return QStringList{pressAction()} + QAccessibleWidget::actionNames(); }

    void doAction(const QString &name) override
    {
        if (name == pressAction())
            qobject_cast<ZelvarGroupToolButton *>(widget())->click();
        else
            QAccessibleWidget::doAction(name);
    }
};

QAccessibleInterface *makeAccess(const QString &className, QObject *object)
{
    auto *button = qobject_cast<ZelvarGroupToolButton *>(object);
    return button && className == QLatin1String("ZelvarGroupToolButton") ? new GroupButtonAccess(button) : nullptr;
}

} // namespace

void installGroupButtonAccess()
{
    QAccessible::installFactory(makeAccess); // which Qt keeps once only
}
