#include "bench/scanrow.h"

#include "search/searchdialog.h"
#include "tests/support/simulatorprocess.h"

#include <QCheckBox>
#include <QComboBox>
#include <QSpinBox>

Figures silentScan(const Rounds &rounds)
{
    constexpr double AnswerMilliseconds = 20.0;
    // Its only servo listens at another baud rate.
    const SimulatorProcess bus({QStringLiteral("--servo"), QStringLiteral("zelvar:1:57600")});
    SearchDialog dialog;
    dialog.show();
    dialog.findChild<QComboBox *>(QStringLiteral("serialPortInfoListBox"))->setCurrentText(bus.name());
    dialog.findChild<QCheckBox *>(QStringLiteral("baudRate1000000CheckBox"))->setChecked(true);
    dialog.findChild<QSpinBox *>(QStringLiteral("upperSearchRangeSpinBox"))->setValue(rounds.silentIds);

    const double begin = wallTime();
    dialog.scan();
    const double milliseconds = (wallTime() - begin) / 1000.0;
    return {Figure::atMost(QStringLiteral("a scan of %1 silent ids").arg(rounds.silentIds), milliseconds,
                           rounds.silentIds * AnswerMilliseconds, QStringLiteral("ms"), 1.05)};
}
