// What bare Qt costs for the program's picture: the measure for the program's start, end and memory.

#include "bare_editview.h"
#include "bare_mainwindow.h"
#include "bare_registerview.h"
#include "bare_searchdialog.h"
#include "bare_settingsdialog.h"

#include <QApplication>
#include <QDialog>
#include <QHash>
#include <QHeaderView>
#include <QLabel>
#include <QMainWindow>
#include <QSpinBox>
#include <QToolButton>

namespace {

struct SheetRow
{
    const char *name; ///< of the widget, or "application"
    const char *sheet;
};

constexpr SheetRow Sheets[] = {
#include "stylesheets.inc"
};

QHash<QString, QString> sheets()
{
    QHash<QString, QString> table;
    for (const SheetRow &row : Sheets)
        table.insert(QLatin1String(row.name), QString::fromUtf8(row.sheet));
    return table;
}

void style(const QWidget &root, const QHash<QString, QString> &table)
{
    for (QWidget *widget : root.findChildren<QWidget *>()) {
        const QString sheet = table.value(widget->objectName());
        if (!sheet.isEmpty() && widget->styleSheet() != sheet)
            widget->setStyleSheet(sheet);
    }
}

template <class Widget, class Form>
void fill(Widget &widget, Form &form, const QHash<QString, QString> &table)
{
    form.setupUi(&widget);
    style(widget, table);
}

void fillBars(QMainWindow &window, Ui::MainWindow &form, const QHash<QString, QString> &table)
{
    for (int i = 0; i < 2; ++i) {
        form.toolBar->addWidget(new QLabel(QStringLiteral("Polling interval (ms): ")));
        form.toolBar->addWidget(new QSpinBox);
    }
    auto *stop = new QToolButton(&window);
    stop->setText(QStringLiteral("Stop motor (F8)"));
    stop->setStyleSheet(table.value(QStringLiteral("stopMotorButton")));
    form.statusBar->addPermanentWidget(stop);
    form.statusBar->showMessage(QStringLiteral("Disconnected"));
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication application(argc, argv);
    const auto table = sheets();
    application.setStyleSheet(table.value(QStringLiteral("application")));

    QDialog settings;
    Ui::SettingsDialog settingsForm;
    fill(settings, settingsForm, table);
    QDialog search;
    Ui::SearchDialog searchForm;
    fill(search, searchForm, table);

    QMainWindow window;
    Ui::MainWindow form;
    form.setupUi(&window);
    QWidget editView(form.unitFieldsTab);
    Ui::EditView editForm;
    fill(editView, editForm, table);
    form.gridLayout->addWidget(&editView);
    QWidget registerView(form.registerFieldsTab);
    Ui::RegisterView registerForm;
    fill(registerView, registerForm, table);
    for (QTableWidget *bank : registerView.findChildren<QTableWidget *>())
        bank->verticalHeader()->hide();
    form.gridLayout_2->addWidget(&registerView);
    fillBars(window, form, table);
    window.show();
    return QApplication::exec();
}
