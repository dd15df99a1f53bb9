#include "plot/rangedialog.h"

#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QPushButton>

namespace plot {

namespace {

constexpr double Limit = 1e7; ///< beyond every value that a servo has
constexpr int Decimals = 3;

QDoubleSpinBox *makeSpinBox(QDialog &dialog, double value)
{
    auto *spinBox = new QDoubleSpinBox(&dialog);
    spinBox->setDecimals(Decimals);
    spinBox->setRange(-Limit, Limit);
    spinBox->setValue(value);
    return spinBox;
}

QString translated(const char *english)
{
    return QCoreApplication::translate("plot::RangeDialog", english);
}

} // namespace

std::optional<recording::Extent> askForRange(QWidget *parent, const recording::Extent &shown)
{
    QDialog dialog(parent);
    dialog.setWindowTitle(translated(QT_TRANSLATE_NOOP("plot::RangeDialog", "Fixed range")));
    auto *lower = makeSpinBox(dialog, shown.least);
    auto *upper = makeSpinBox(dialog, shown.greatest);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
    auto *form = new QFormLayout(&dialog);
    form->addRow(translated(QT_TRANSLATE_NOOP("plot::RangeDialog", "&From:")), lower);
    form->addRow(translated(QT_TRANSLATE_NOOP("plot::RangeDialog", "&To:")), upper);
    form->addRow(buttons);
    const auto check = [=] { buttons->button(QDialogButtonBox::Ok)->setEnabled(lower->value() < upper->value()); };
    for (const auto *end : {lower, upper})
        QObject::connect(end, QOverload<double>::of(&QDoubleSpinBox::valueChanged), &dialog, check);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return recording::Extent{lower->value(), upper->value()};
}

} // namespace plot
