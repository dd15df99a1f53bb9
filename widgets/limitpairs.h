#pragma once

#include <QObject>

class QWidget;
class ZelvarDoubleSpinBox;

/**
 * Tells, while limits are edited, that one has passed its counterpart: nothing would be within the two. Both fields are
 * marked then; whether they are applied is still the user's choice.
 */
class LimitPairs : public QObject
{
    Q_OBJECT

public:
    /** Watches the limits in @p view, of which it is a child. */
    explicit LimitPairs(QWidget &view);

private:
    struct Pair;
    static const Pair Pairs[];

    static void compare(ZelvarDoubleSpinBox &lower, ZelvarDoubleSpinBox &upper, const QString &objection);
};
