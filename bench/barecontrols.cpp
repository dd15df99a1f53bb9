#include "bench/barecontrols.h"

#include "bench/connectedwindow.h"
#include "bench/measuring.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QSpinBox>
#include <QTableWidget>

#include <utility>

namespace {

template <class SpinBox>
void copyRange(const SpinBox &from, SpinBox &to)
{
    to.setRange(from.minimum(), from.maximum());
    to.setSingleStep(from.singleStep());
}

} // namespace

BareControls::BareControls(const QWidget &originalWindow, const QVector<QWidget *> &originals)
{
    m_window.resize(originalWindow.size());
    for (QWidget *original : originals)
        m_controls.push_back(makeControl(originalWindow, *original));
    m_window.show();
    paintAll();
}

ShownValues BareControls::originalValues() const
{
    ShownValues values;
    for (const Control &control : m_controls)
        values.append(control.read());
    return values;
}

double BareControls::show(const ShownValues &values)
{
    const double begin = threadTime();
    for (std::size_t i = 0; i < m_controls.size(); ++i)
        m_controls[i].write(values[int(i)]);
    paintAll();
    return threadTime() - begin;
}

template <class Widget>
Widget *BareControls::imitate(const QWidget &originalWindow, const Widget &original)
{
    auto *imitation = new Widget(&m_window);
    imitation->setStyleSheet(original.styleSheet());
    imitation->setEnabled(original.isEnabled());
    imitation->setGeometry(QRect(original.mapTo(&originalWindow, QPoint()), original.size()));
    return imitation;
}

BareControls::Control BareControls::makeControl(const QWidget &originalWindow, QWidget &original)
{
    if (const auto *edit = qobject_cast<QLineEdit *>(&original)) {
        auto *bare = imitate(originalWindow, *edit);
        return {[edit] { return edit->text(); }, [bare](const QVariant &text) { bare->setText(text.toString()); }};
    }
    if (const auto *number = qobject_cast<QDoubleSpinBox *>(&original)) {
        auto *bare = imitate(originalWindow, *number);
        bare->setDecimals(number->decimals());
        copyRange(*number, *bare);
        return {[number] { return number->value(); },
                [bare](const QVariant &value) { bare->setValue(value.toDouble()); }};
    }
    if (const auto *number = qobject_cast<QSpinBox *>(&original)) {
        auto *bare = imitate(originalWindow, *number);
        copyRange(*number, *bare);
        return {[number] { return number->value(); }, [bare](const QVariant &value) { bare->setValue(value.toInt()); }};
    }
    if (const auto *box = qobject_cast<QCheckBox *>(&original)) {
        auto *bare = imitate(originalWindow, *box);
        bare->setText(box->text());
        return {[box] { return box->isChecked(); }, [bare](const QVariant &on) { bare->setChecked(on.toBool()); }};
    }
    if (const auto *list = qobject_cast<QComboBox *>(&original)) {
        auto *bare = imitate(originalWindow, *list);
        for (int i = 0; i < list->count(); ++i)
            bare->addItem(list->itemText(i));
        return {[list] { return list->currentIndex(); },
                [bare](const QVariant &index) { bare->setCurrentIndex(index.toInt()); }};
    }
    qFatal("%s is no control", qPrintable(original.objectName()));
}

BareTables::BareTables(const QVector<QTableWidget *> &originals) : m_originals(originals)
{
    const QWidget &originalWindow = *originals.first()->window();
    m_window.resize(originalWindow.size());
    for (const QTableWidget *original : originals) {
        auto *table = new QTableWidget(original->rowCount(), original->columnCount(), &m_window);
        table->setStyleSheet(original->styleSheet());
        table->setGeometry(QRect(original->mapTo(&originalWindow, QPoint()), original->size()));
        table->verticalHeader()->hide();
        table->verticalHeader()->setDefaultSectionSize(original->verticalHeader()->defaultSectionSize());
        table->horizontalHeader()->setStretchLastSection(true);
        table->setWordWrap(original->wordWrap());
        table->setTextElideMode(original->textElideMode());
        for (int column = 0; column < table->columnCount(); ++column) {
            table->setColumnWidth(column, original->columnWidth(column));
            for (int row = 0; row < table->rowCount(); ++row)
                table->setItem(row, column, new QTableWidgetItem());
        }
        m_tables.append(table);
    }
    m_window.show();
    show(originalTexts());
}

ShownValues BareTables::originalTexts() const
{
    ShownValues texts;
    for (const QTableWidget *table : m_originals) {
        for (int row = 0; row < table->rowCount(); ++row) {
            for (int column = 0; column < table->columnCount(); ++column)
                texts.append(table->item(row, column) ? table->item(row, column)->text() : QString());
        }
    }
    return texts;
}

double BareTables::show(const ShownValues &texts)
{
    // Which cells change is no work of theirs.
    std::vector<std::pair<QTableWidgetItem *, QString>> changes;
    int next = 0;
    for (const QTableWidget *table : m_tables) {
        for (int row = 0; row < table->rowCount(); ++row) {
            for (int column = 0; column < table->columnCount(); ++column) {
                QTableWidgetItem *item = table->item(row, column);
                const QString text = texts[next++].toString();
                if (item->text() != text)
                    changes.emplace_back(item, text);
            }
        }
    }
    const double begin = threadTime();
    for (const auto &[item, text] : changes)
        item->setText(text);
    paintAll();
    return threadTime() - begin;
}
