#include "guide/guidekey.h"

#include "guide/guidewindow.h"

#include <QApplication>
#include <QKeyEvent>

#include <utility>

namespace guide {

namespace {

constexpr Qt::Key Key = Qt::Key_F1;

/** Where the guide tells of a part of the program. */
struct ChapterRow
{
    const char *part; ///< name of the object, or of its class
    const char *chapter;
};

// clang-format off
constexpr ChapterRow Chapters[] = {
    {"QMessageBox",                  "error-boxes-and-what-to-do"},
    {"SettingsDialog",               "settings"},
    {"SearchDialog",                 "search"},
    {"stopMotorButton",              "stopping-the-motor"},
    {"linkLine",                     "the-status-bar"},
    {"toolBar",                      "the-window"},
    {"operatingModeComboBox",        "operating-modes-and-locks"},
    {"zelvarHardwareErrorGroupBox",  "hardware-errors"},
    {"zelvarPacketStatusGroupBox",   "hardware-errors"},
    {"nonVolatileParamsGroupBox",    "what-the-parameters-mean"},
    {"volatileParamsGroupBox",       "what-the-parameters-mean"},
    {"editView",                     "unit-fields"},
    {"registerView",                 "register-fields"},
    {"plotDock",                     "the-plot"},
    {"comparisonDialog",             "keeping-and-restoring-parameters"},
    {"historyDialog",                "the-history"},
};
// clang-format on

const char *const Beginning = "the-window";

const char *ownChapter(const QWidget &widget)
{
    for (const ChapterRow &row : Chapters) {
        if (widget.objectName() == QLatin1String(row.part) || widget.inherits(row.part))
            return row.chapter;
    }
    return nullptr;
}

} // namespace

GuideKey::GuideKey(QWidget &window, QString folder) : m_window(window), m_folder(std::move(folder))
{
    qApp->installEventFilter(this); // a shortcut does not reach through dialogs
}

void GuideKey::open()
{
    QWidget *focus = QApplication::focusWidget();
    const QString chapter = chapterFor(focus ? focus : QApplication::activeWindow());
    QWidget *modal = QApplication::activeModalWidget();
    QWidget *parent = modal ? modal : &m_window; // nothing else can be used beside a modal window
    if (m_guide && m_guide->parentWidget() != parent)
        delete m_guide;
    if (!m_guide) {
        m_guide = new GuideWindow(m_folder, parent);
        m_guide->setAttribute(Qt::WA_DeleteOnClose);
    }
    m_guide->show(); // first, since where a chapter is depends on the width
    m_guide->showChapter(chapter);
    m_guide->raise();
    m_guide->activateWindow();
}

bool GuideKey::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    const auto *key = static_cast<QKeyEvent *>(event);
    if (key->key() != Key || key->modifiers() != Qt::NoModifier)
        return false;
    if (!key->isAutoRepeat())
        open();
    return true;
}

QString GuideKey::chapterFor(const QWidget *widget)
{
    for (; widget; widget = widget->parentWidget()) {
        if (const char *chapter = ownChapter(*widget))
            return QLatin1String(chapter);
    }
    return QLatin1String(Beginning);
}

QStringList GuideKey::chapters()
{
    QStringList chapters{QLatin1String(Beginning)};
    for (const ChapterRow &row : Chapters)
        chapters.append(QLatin1String(row.chapter));
    return chapters;
}

} // namespace guide
