#pragma once

#include <QWidget>

/**
 * The mark in a corner of a control that shows something else than the servo's value. It is a child of the control that
 * takes neither room nor clicks nor the focus, so that the control's own tip shows over it, too.
 */
class FieldMark : public QWidget
{
    Q_OBJECT

public:
    enum class Kind {
        None,    ///< nothing to mark
        Changed, ///< edited, not applied
        Pending, ///< applied, not read back from the servo
    };

    /** Lies in @p control's corner at the beginning of a line, and stays there. */
    explicit FieldMark(QWidget &control);

    /** Shows @p kind, which is not None. @param text what a screen reader reads of it. */
    void mark(Kind kind, const QString &text);

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void place();

    QWidget &m_control;
    Kind m_kind = Kind::None;
};
