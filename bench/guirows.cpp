#include "bench/guirows.h"

#include "bench/barecontrols.h"
#include "bench/connectedwindow.h"
#include "bench/registervalues.h"
#include "device/iunitdatafield.h"

#include <QComboBox>
#include <QTabWidget>
#include <QTableWidget>

#include <algorithm>
#include <vector>

namespace {

constexpr double MicrosecondsPerMillisecond = 1000.0;
/** Tables that the polls of one measurement go through. */
constexpr int TableCount = 16;

constexpr const char *RealtimeControls[] = {
    "actualPositionLineEdit", "actualAngularVelocityLineEdit",   "actualTorqueLineEdit",
    "actualVoltageLineEdit",  "actualQuadratureCurrentLineEdit", "actualTemperatureLineEdit",
};

constexpr const char *RegisterTables[] = {
    "eepromRegisterBank1Widget",
    "eepromRegisterBank2Widget",
    "ramRegisterBank1TableWidget",
    "ramRegisterBank2TableWidget",
};

std::vector<QByteArray> tables(Changing changing)
{
    RegisterValues values;
    std::vector<QByteArray> tables;
    for (int i = 0; i < TableCount; ++i) {
        values.change(changing);
        tables.push_back(values.table());
    }
    return tables;
}

QVector<QWidget *> realtimeControls(const ConnectedWindow &window)
{
    QVector<QWidget *> controls;
    for (const char *name : RealtimeControls)
        controls.append(&window.child(name));
    return controls;
}

/** The controls that show the servo's values, but for the lists, for which there is no bare counterpart to be had. */
QVector<QWidget *> boundControls(const ConnectedWindow &window)
{
    QVector<QWidget *> controls;
    for (QWidget *widget : window.child("editView").findChildren<QWidget *>()) {
        if (dynamic_cast<IUnitDataField *>(widget) && !qobject_cast<QComboBox *>(widget))
            controls.append(widget);
    }
    return controls;
}

QVector<QTableWidget *> registerTables(const ConnectedWindow &window)
{
    QVector<QTableWidget *> widgets;
    for (const char *name : RegisterTables)
        widgets.append(&window.child<QTableWidget>(name));
    return widgets;
}

/** Shows @p tables in turns in @p window and, as far as @p read reads them there, in @p bare. */
template <class Bare, class Read>
Comparison showInTurns(ConnectedWindow &window, Bare &bare, Read read, const std::vector<QByteArray> &tables, int polls)
{
    std::vector<ShownValues> shown;
    for (const QByteArray &table : tables) {
        window.poll(table);
        window.poll(table); // the mode locks follow one poll late
        shown.push_back((bare.*read)());
    }
    Comparison time;
    for (int i = 0; i < polls; ++i) {
        const std::size_t turn = std::size_t(i) % tables.size();
        time.ours.add(window.poll(tables[turn]));
        time.baseline.add(bare.show(shown[turn]));
    }
    return time;
}

Figure figureOf(const QString &name, const Comparison &time, double limit)
{
    return Figure::atMost(name, time.ours.median() / MicrosecondsPerMillisecond,
                          time.baseline.median() / MicrosecondsPerMillisecond, QStringLiteral("ms"), limit);
}

} // namespace

Figures realtimeValuesShown(const Rounds &rounds)
{
    ConnectedWindow window;
    BareControls bare(*window.child("editView").window(), realtimeControls(window));
    return {figureOf(
        QStringLiteral("one poll shown, six realtime values changing"),
        showInTurns(window, bare, &BareControls::originalValues, tables(Changing::RealtimeValues), rounds.shownPolls),
        2.0)};
}

Figures nothingShown(const Rounds &rounds)
{
    ConnectedWindow window;
    const QByteArray table = RegisterValues().table();
    window.poll(table);
    window.poll(table);
    Samples time;
    for (int i = 0; i < rounds.shownPolls; ++i)
        time.add(window.poll(table) / MicrosecondsPerMillisecond);
    return {Figure::absolute(QStringLiteral("one poll shown, nothing changing"), time.median(), QStringLiteral("ms"),
                             0.15)};
}

Figures everythingShown(const Rounds &rounds)
{
    ConnectedWindow window;
    BareControls bare(*window.child("editView").window(), boundControls(window));
    return {figureOf(
        QStringLiteral("one poll shown, all registers changing"),
        showInTurns(window, bare, &BareControls::originalValues, tables(Changing::Everything), rounds.shownPolls),
        1.5)};
}

Figures registersShown(const Rounds &rounds)
{
    constexpr int RegisterFieldsTab = 1;
    ConnectedWindow window;
    window.child<QTabWidget>("tabWidget").setCurrentIndex(RegisterFieldsTab);
    window.poll(RegisterValues().table());
    BareTables bare(registerTables(window));
    return {figureOf(
        QStringLiteral("one poll shown in \"Register fields\", all registers changing"),
        showInTurns(window, bare, &BareTables::originalTexts, tables(Changing::Everything), rounds.shownPolls), 1.5)};
}
