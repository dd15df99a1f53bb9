#include "dialogs/comparisonmodel.h"

#include <QFont>

#include <algorithm>
#include <utility>

namespace dialogs {

using Fate = profile::RestoredField::Fate;

ComparisonModel::ComparisonModel(const FieldText &text, QString fileTitle, bool isChoosable, QObject *parent)
    : QAbstractTableModel(parent), m_text(text), m_fileTitle(std::move(fileTitle)), m_isChoosable(isChoosable)
{
}

void ComparisonModel::compare(const profile::Profile &servo, const profile::Profile &file)
{
    beginResetModel();
    const std::vector<Row> before = std::move(m_rows);
    m_rows.clear();
    m_hasResults = false;
    for (const profile::Value &value : file.values) {
        const auto isSame = [&value](const Row &row) { return row.pair.field == value.field; };
        const auto old = std::find_if(before.begin(), before.end(), isSame);
        const bool isChosen = old == before.end() ? !profile::belongsToOneServo(*value.field) : old->isChosen;
        if (const auto raw = servo.raw(*value.field))
            m_rows.push_back({{value.field, *raw, value.raw}, isChosen, {}});
    }
    endResetModel();
    Q_EMIT chosenChanged();
}

void ComparisonModel::setAddressChosen(bool isChosen)
{
    for (Row &row : m_rows) {
        if (profile::isAddress(*row.pair.field))
            row.isChosen = isChosen;
    }
    Q_EMIT dataChanged(index(0, FieldColumn), index(rowCount() - 1, FieldColumn), {Qt::CheckStateRole});
    Q_EMIT chosenChanged();
}

void ComparisonModel::showReport(const profile::RestoreReport &report)
{
    beginResetModel();
    m_hasResults = true;
    for (const profile::RestoredField &field : report.fields) {
        for (Row &row : m_rows) {
            if (row.pair.field == field.now.field && row.isDifferent())
                row.result = field;
        }
    }
    endResetModel();
}

std::vector<const model::Field *> ComparisonModel::chosenFields() const
{
    std::vector<const model::Field *> fields;
    for (const Row &row : m_rows) {
        if (row.isDifferent() && row.isChosen)
            fields.push_back(row.pair.field);
    }
    return fields;
}

int ComparisonModel::differenceCount() const
{
    return int(std::count_if(m_rows.begin(), m_rows.end(), [](const Row &row) { return row.isDifferent(); }));
}

int ComparisonModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int ComparisonModel::columnCount(const QModelIndex &parent) const
{
    if (parent.isValid())
        return 0;
    return m_hasResults ? ResultColumn + 1 : ResultColumn;
}

QVariant ComparisonModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const Row &row = m_rows[std::size_t(index.row())];
    switch (role) {
    case Qt::DisplayRole:
        return textOf(row, index.column());
    case Qt::ToolTipRole:
        return tr("%1, register %2").arg(QLatin1String(row.pair.field->key)).arg(row.pair.field->address);
    case Qt::FontRole: {
        QFont font;
        font.setBold(row.isDifferent() && index.column() == FileColumn);
        return font;
    }
    case Qt::CheckStateRole:
        if (!m_isChoosable || index.column() != FieldColumn || !row.isDifferent())
            return {};
        return row.isChosen ? Qt::Checked : Qt::Unchecked;
    case DifferentRole:
        return row.isDifferent();
    default:
        return {};
    }
}

bool ComparisonModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || role != Qt::CheckStateRole)
        return false;
    m_rows[std::size_t(index.row())].isChosen = value.toInt() == Qt::Checked;
    Q_EMIT dataChanged(index, index, {role});
    Q_EMIT chosenChanged();
    return true;
}

QVariant ComparisonModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return {};
    if (role == Qt::TextAlignmentRole)
        return int(Qt::AlignLeft | Qt::AlignVCenter);
    if (role != Qt::DisplayRole)
        return {};
    switch (section) {
    case FieldColumn:
        return tr("Field");
    case ServoColumn:
        return m_hasResults ? tr("The servo had") : tr("The servo has");
    case FileColumn:
        return m_fileTitle;
    default:
        return tr("Result");
    }
}

Qt::ItemFlags ComparisonModel::flags(const QModelIndex &index) const
{
    Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    if (index.isValid() && m_isChoosable && index.column() == FieldColumn &&
        m_rows[std::size_t(index.row())].isDifferent())
        flags |= Qt::ItemIsUserCheckable;
    return flags;
}

QString ComparisonModel::textOf(const Row &row, int column) const
{
    switch (column) {
    case FieldColumn:
        return m_text.caption(*row.pair.field);
    case ServoColumn:
        return valueText(row, row.pair.servo, row.pair.file);
    case FileColumn:
        return valueText(row, row.pair.file, row.pair.servo);
    default:
        return resultText(row);
    }
}

/** Values that the decimals shown do not tell apart have their counts, too. */
QString ComparisonModel::valueText(const Row &row, qint32 raw, qint32 other) const
{
    QString text = m_text.value(*row.pair.field, raw);
    if (raw == other || text != m_text.value(*row.pair.field, other))
        return text;
    return tr("%1 (raw %2)").arg(text).arg(raw);
}

QString ComparisonModel::resultText(const Row &row) const
{
    if (!row.isDifferent())
        return {};
    if (!row.result)
        return tr("left out");
    const QString now = m_text.value(*row.pair.field, row.result->now.servo);
    switch (row.result->fate) {
    case Fate::Equal:
    case Fate::Written:
        return tr("written");
    case Fate::Refused:
        return tr("refused (%1); it has %2").arg(m_text.refusal(row.result->error), now);
    case Fate::LeftOut:
        return tr("not written, since not all before it was taken");
    case Fate::NotKept:
        break;
    }
    return tr("not kept; it has %1").arg(now);
}

} // namespace dialogs
