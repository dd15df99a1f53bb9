#pragma once

#include <QToolButton>

class ZelvarCheckBox;
class ZelvarDoubleSpinBox;
class ZelvarParametersGroupBox;

/**
 * A mark beside "Enable motor" that says how far the servo will move as soon as an edit that switches the motor on is
 * applied. Its pop-up makes the target the position. There only while that is so.
 */
class SwitchOnMark : public QToolButton
{
    Q_OBJECT

public:
    /** @param view has the group of the volatile parameters, which becomes the parent and must have all its fields. */
    explicit SwitchOnMark(QWidget &view);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void refresh();
    void place();
    /** Raw counts from where the servo is to its target; 0 if switching on does not make it move. */
    int distance() const;
    void setTargetToPosition();

    ZelvarParametersGroupBox *m_group;
    ZelvarCheckBox *m_enableMotor;
    ZelvarDoubleSpinBox *m_target;
};
