#include "dialogs/historymodel.h"

#include "profile/restoreplan.h"

#include <QGuiApplication>
#include <QLocale>
#include <QPalette>

#include <algorithm>
#include <array>
#include <iterator>

namespace dialogs {

using profile::HistoryEntry;

namespace {

const std::array<const char *, HistoryModel::ColumnCount> Titles{
    QT_TRANSLATE_NOOP("dialogs::HistoryModel", "Time"),
    QT_TRANSLATE_NOOP("dialogs::HistoryModel", "Name"),
    QT_TRANSLATE_NOOP("dialogs::HistoryModel", "Pinned"),
    QT_TRANSLATE_NOOP("dialogs::HistoryModel", "Changed"),
};

/** @p value without the unit at its end, if it is a number with the unit of @p other. */
QString withoutUnitOf(const QString &other, const QString &value)
{
    const int blank = value.lastIndexOf(QLatin1Char(' '));
    const bool isNumber = !value.isEmpty() && !value[0].isLetter();
    return isNumber && blank > 0 && other.endsWith(value.midRef(blank)) ? value.left(blank) : value;
}

} // namespace

HistoryModel::HistoryModel(const FieldText &text, profile::History &history, QObject *parent)
    : QAbstractTableModel(parent), m_text(text), m_history(history)
{
}

HistoryModel::~HistoryModel() = default;

void HistoryModel::load(const profile::ServoKey &servo)
{
    beginResetModel();
    m_listing = m_history.entries(servo);
    m_changes.clear();
    for (int row = 0; row < rowCount(); ++row)
        m_changes.push_back(changes(row));
    endResetModel();
    accept(m_listing.error);
}

int HistoryModel::rowOf(const QString &file) const
{
    const auto &entries = m_listing.entries;
    const auto isThis = [&file](const HistoryEntry &entry) { return entry.file == file; };
    const auto found = std::find_if(entries.begin(), entries.end(), isThis);
    return found == entries.end() ? -1 : int(std::distance(entries.begin(), found));
}

QString HistoryModel::title(int row) const
{
    return entry(row).name.isEmpty() ? timeText(entry(row).time) : entry(row).name;
}

QString HistoryModel::timeText(const QDateTime &time)
{
    return QLocale().toString(time.toLocalTime(), QLocale::ShortFormat);
}

/** What the entry of @p row has otherwise than the one before that can be read; empty for the first one. */
QStringList HistoryModel::changes(int row) const
{
    const auto &entries = m_listing.entries;
    const auto isReadable = [](const HistoryEntry &other) { return other.profile.has_value(); };
    const auto before = std::find_if(entries.begin() + row + 1, entries.end(), isReadable);
    if (before == entries.end() || !entry(row).profile)
        return {};
    const profile::Profile &now = *entry(row).profile;
    QStringList lines;
    for (const profile::Pair &pair :
         compare(*before->profile, now, profile::nonVolatileFields(now.family())).differences()) {
        const QString from = m_text.value(*pair.field, pair.servo);
        const QString to = m_text.value(*pair.field, pair.file);
        lines.append(tr("%1 %2 \u2192 %3", "field, value before, value")
                         .arg(m_text.caption(*pair.field), withoutUnitOf(to, from), to));
    }
    return lines;
}

QString HistoryModel::changeText(int row) const
{
    if (!entry(row).profile)
        return tr("cannot be read: %1").arg(entry(row).error);
    const QStringList &lines = m_changes[std::size_t(row)];
    if (row == rowCount() - 1)
        return tr("first kept");
    if (lines.isEmpty())
        return QStringLiteral("\u2013"); // what came in between cannot be read
    return lines.join(QLatin1String("; "));
}

int HistoryModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_listing.entries.size());
}

int HistoryModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant HistoryModel::data(const QModelIndex &index, int role) const
{
    const HistoryEntry &shown = entry(index.row());
    switch (role) {
    case Qt::CheckStateRole:
        return index.column() == PinnedColumn ? QVariant(shown.isPinned ? Qt::Checked : Qt::Unchecked) : QVariant();
    case Qt::ForegroundRole:
        return shown.profile ? QVariant() : QGuiApplication::palette().brush(QPalette::Disabled, QPalette::Text);
    case Qt::ToolTipRole:
        return toolTip(index);
    case Qt::AccessibleTextRole:
        if (index.column() == PinnedColumn)
            return shown.isPinned ? tr("pinned") : tr("not pinned");
        return data(index, Qt::DisplayRole);
    case Qt::DisplayRole:
    case Qt::EditRole:
        break;
    default:
        return {};
    }
    switch (index.column()) {
    case TimeColumn:
        return timeText(shown.time);
    case NameColumn:
        return shown.name;
    case ChangeColumn:
        return changeText(index.row());
    default:
        return {};
    }
}

QVariant HistoryModel::toolTip(const QModelIndex &index) const
{
    switch (index.column()) {
    case NameColumn:
        return tr("Press F2, or click twice, to give it a name.");
    case PinnedColumn:
        return tr("The latest %1 entries of a servo stay; a pinned one stays however many follow.")
            .arg(profile::History::Capacity);
    case ChangeColumn: {
        const QStringList &lines = m_changes[std::size_t(index.row())];
        return lines.isEmpty() ? changeText(index.row()) : lines.join(QLatin1Char('\n'));
    }
    default:
        return {};
    }
}

QVariant HistoryModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    const bool isTitle = orientation == Qt::Horizontal && role == Qt::DisplayRole;
    return isTitle ? QVariant(tr(Titles[std::size_t(section)])) : QVariant();
}

Qt::ItemFlags HistoryModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    if (index.column() == NameColumn)
        return flags | Qt::ItemIsEditable;
    return index.column() == PinnedColumn ? flags | Qt::ItemIsUserCheckable : flags;
}

bool HistoryModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    HistoryEntry &edited = m_listing.entries[std::size_t(index.row())];
    if (index.column() == NameColumn && role == Qt::EditRole) {
        const QString name = value.toString().simplified();
        if (name == edited.name || !accept(m_history.setName(edited, name)))
            return false;
        edited.name = name;
    } else if (index.column() == PinnedColumn && role == Qt::CheckStateRole) {
        const bool isPinned = value.toInt() == Qt::Checked;
        if (!accept(m_history.setPinned(edited, isPinned)))
            return false;
        edited.isPinned = isPinned;
    } else {
        return false;
    }
    Q_EMIT dataChanged(index, index);
    return true;
}

/** Keeps @p error. @return whether there is none. */
bool HistoryModel::accept(const QString &error)
{
    m_error = error;
    Q_EMIT errorChanged();
    return error.isEmpty();
}

} // namespace dialogs
