#pragma once

#include <QColor>
#include <QString>
#include <QWidget>

#include <vector>

namespace plot {

/** What the vertical lines mean, above the strips and the places of the lines. */
class MarkRow : public QWidget
{
    Q_OBJECT

public:
    /** A text and where it begins, in pixels of the row. */
    struct Mark
    {
        int place;
        QColor color;
        QString text;
    };

    explicit MarkRow(QWidget *parent = nullptr);

    /** @param marks from the left. */
    void setMarks(std::vector<Mark> marks);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    std::vector<Mark> m_marks;
};

} // namespace plot
