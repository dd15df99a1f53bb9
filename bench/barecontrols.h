#pragma once

#include <QStringList>
#include <QVariant>
#include <QVector>
#include <QWidget>

#include <functional>
#include <vector>

class QTableWidget;

/** What a set of controls or cells shows, in their order. */
using ShownValues = QVector<QVariant>;

/** Plain Qt controls with the looks of some of the program's, and nothing behind them. */
class BareControls
{
public:
    /** One for each of @p originals, which must remain live: at its place below @p originalWindow, styled like it. */
    BareControls(const QWidget &originalWindow, const QVector<QWidget *> &originals);

    /** What the originals show now. */
    ShownValues originalValues() const;
    /** Shows @p values. @return microseconds of this thread until all is painted. */
    double show(const ShownValues &values);

private:
    struct Control
    {
        std::function<QVariant()> read; ///< of the original
        std::function<void(const QVariant &)> write;
    };

    template <class Widget>
    Widget *imitate(const QWidget &originalWindow, const Widget &original);
    Control makeControl(const QWidget &originalWindow, QWidget &original);

    QWidget m_window;
    std::vector<Control> m_controls;
};

/** Plain tables with the looks and the texts of the program's. */
class BareTables
{
public:
    /** One for each of @p originals, which must remain live and keep their rows. */
    explicit BareTables(const QVector<QTableWidget *> &originals);

    /** The texts of all cells of the originals now. */
    ShownValues originalTexts() const;
    /** Shows @p texts. @return microseconds of this thread until all is painted. */
    double show(const ShownValues &texts);

private:
    QVector<QTableWidget *> m_originals;
    QWidget m_window;
    QVector<QTableWidget *> m_tables; ///< owned by the window
};
