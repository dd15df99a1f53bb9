#include "app/applytext.h"

#include "device/devicehelper.h"
#include "device/fieldbinding.h"
#include "device/unitshelper.h"
#include "device/zelvarv1.h"
#include "model/baudrates.h"
#include "model/families.h"
#include "model/rawscale.h"
#include "model/refusals.h"
#include "model/registerimage.h"
#include "widgets/followeddevice.h"
#include "widgets/zelvarunitlabel.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLocale>
#include <QStringList>

namespace {

using Outcome = BusResult::Outcome;
using Verdict = session::ApplyReport::Verdict;

QString entryText(const QWidget &view, const FieldBinding &binding, int index)
{
    const auto *list = view.findChild<QComboBox *>(QLatin1String(binding.control));
    return list && index >= 0 && index < list->count() - 1 ? list->itemText(index) : QString::number(index);
}

bool isSwitch(const model::Field &field)
{
    return field.kind == model::FieldKind::PlainValue && field.range.rawMax == 1;
}

/** Whether @p field has controls in the window: those are the own family's. */
bool isOwn(const model::Field &field)
{
    return model::ZelvarV1Family.fieldAt(field.address) == &field;
}

QString numberText(model::FieldKind kind, const model::Range &range, qint32 raw)
{
    const auto units = currentUnits();
    const auto id = static_cast<qint32>(kind);
    const double shown = units->toDisplay(model::RawScale(range).toPhysical(raw), id);
    const bool hasUnit = model::isQuantity(kind);
    const QString number = QLocale().toString(shown, 'f', hasUnit ? units->decimals(id) : model::stepDecimals(range));
    return hasUnit ? number + QLatin1Char(' ') + units->unitName(id) : number;
}

QString numberText(const FieldBinding &binding, qint32 raw)
{
    const auto device = DeviceHelper::currentDevice();
    const QString control = QLatin1String(binding.control);
    const bool isDefined = device && &device->family() == &model::ZelvarV1Family && device->definesField(control);
    return numberText(binding.kind(), isDefined ? model::Range(device->limits(control)) : binding.field->range, raw);
}

/** Of a field that no control shows. */
QString valueText(const model::Field &field, qint32 raw)
{
    if (field.kind == model::FieldKind::BaudRate)
        return QString::number(model::nominalBaudRate(raw));
    if (isSwitch(field))
        return raw != 0 ? ApplyText::tr("on") : ApplyText::tr("off");
    if (field.flags.isEmpty())
        return numberText(field.kind, field.range, raw);
    QStringList labels;
    for (const model::Flag &flag : field.flags) {
        if (quint32(raw) & (1U << flag.bit))
            labels.append(QCoreApplication::translate("EditView", flag.label));
    }
    return labels.isEmpty() ? ApplyText::tr("none") : labels.join(QLatin1String(", "));
}

QString partText(const QWidget &view, const FieldBinding &binding, quint32 bits)
{
    const qint32 shown = binding.shownValue(bits);
    if (binding.kind() == model::FieldKind::BaudRate)
        return QString::number(model::baudRateOf(shown));
    if (model::isChoice(binding.kind()))
        return entryText(view, binding, shown);
    if (isSwitch(*binding.field))
        return shown ? ApplyText::tr("on") : ApplyText::tr("off");
    return numberText(binding, shown);
}

/** What the form calls @p control, without its unit; empty where it does not say. */
QString formCaption(const QWidget &control)
{
    if (!control.accessibleName().isEmpty())
        return control.accessibleName();
    if (const auto *button = qobject_cast<const QAbstractButton *>(&control))
        return button->text();
    // A caption stands beside its control; the whole view has ten times as many labels, and a poll may ask for seven.
    const auto labels = control.parentWidget()->findChildren<QLabel *>(QString(), Qt::FindDirectChildrenOnly);
    for (const QLabel *label : labels) {
        if (label->buddy() != &control)
            continue;
        const auto *unitLabel = qobject_cast<const ZelvarUnitLabel *>(label);
        return unitLabel ? unitLabel->caption() : label->text();
    }
    return {};
}

} // namespace

QString ApplyText::applied(const session::ApplyReport &report) const
{
    if (report.edited.empty())
        return tr("applied: the servo had these values already");
    if (report.edited.size() == 1) {
        const session::AppliedField &field = report.edited.front();
        return tr("applied: %1 %2").arg(caption(*field.field), bitsText(*field.field, field.wanted));
    }
    return tr("applied: %1 values").arg(report.edited.size());
}

QString ApplyText::fields(const std::vector<session::AppliedField> &fields) const
{
    QStringList lines;
    for (const session::AppliedField &field : fields)
        lines.append(caption(*field.field) + QLatin1String(": ") + bitsText(*field.field, field.wanted));
    return lines.join(QLatin1Char('\n'));
}

QString ApplyText::notApplied(const session::ApplyReport &report) const
{
    const auto &told = report.others.empty() ? report.edited : report.others;
    QString rows;
    for (const session::AppliedField &field : told)
        rows += row(field);
    return QStringLiteral("<table cellspacing=\"6\" style=\"white-space: nowrap\"><tr><th align=\"left\">%1</th><th "
                          "align=\"left\">%2</th>"
                          "<th align=\"left\">%3</th></tr>%4</table><p>%5</p>")
        .arg(tr("Field"), tr("Wanted"), tr("The servo has"), rows, reason(report).toHtmlEscaped());
}

QString ApplyText::dropped(const session::ApplyReport &report) const
{
    const QString what =
        report.edited.size() == 1 ? caption(*report.edited.front().field) : tr("%1 values").arg(report.edited.size());
    return report.verdict == Verdict::Dropped ? tr("not sent before the connection ended: %1").arg(what)
                                              : tr("not read back before the connection ended: %1").arg(what);
}

QString ApplyText::droppedEdit(const QStringList &controls) const
{
    const QString what = controls.size() == 1 ? captions(controls) : tr("%1 values").arg(controls.size());
    return tr("changed and not applied before the connection ended: %1").arg(what);
}

QString ApplyText::captions(const QStringList &controls) const
{
    QStringList captions;
    for (const QString &control : controls) {
        if (const FieldBinding *binding = fieldBinding(control))
            captions.append(caption(*binding->field));
    }
    captions.removeDuplicates(); // a value and its direction are one field
    return captions.join(QLatin1Char('\n'));
}

QString ApplyText::value(const model::Field &field, qint32 raw) const
{
    return bitsText(field, model::bitsOf(field, raw));
}

QString ApplyText::bitsText(const model::Field &field, quint32 bits) const
{
    if (!isOwn(field))
        return valueText(field, model::rawValue(field, bits));
    QStringList parts;
    for (const FieldBinding &binding : fieldBindings(field))
        parts.append(partText(m_view, binding, bits));
    return parts.isEmpty() ? valueText(field, model::rawValue(field, bits)) : parts.join(QLatin1String(", "));
}

QString ApplyText::refusal(quint8 errorByte) const
{
    const quint8 number = errorByte & model::ErrorNumberMask;
    for (const model::Refusal &row : model::Refusals) {
        if (row.error == number)
            return tr(row.text);
    }
    return tr("error number %1, which the servo's family does not have").arg(number);
}

/** As the form has it, where its user knows it from; a field without a control is called as its registers are. */
QString ApplyText::caption(const model::Field &field) const
{
    const auto bindings = isOwn(field) ? fieldBindings(field) : model::Rows<FieldBinding>();
    const auto *control =
        bindings.isEmpty() ? nullptr : m_view.findChild<QWidget *>(QLatin1String(bindings.begin()->control));
    QString caption = control ? formCaption(*control).trimmed() : QString();
    if (caption.endsWith(QLatin1Char(':')))
        caption.chop(1);
    return caption.isEmpty() ? ZelvarV1::fieldLabel(field) : caption;
}

QString ApplyText::reason(const session::ApplyReport &report) const
{
    if (report.verdict == Verdict::Unknown) {
        return tr("The servo has not answered since, so that what it has is not known. Check its supply and the "
                  "cable; what it has is shown as soon as it answers.");
    }
    switch (report.write.outcome) {
    case Outcome::Refused:
        return tr("The servo refused it: %1.").arg(refusal(report.write.error));
    case Outcome::Answered:
        return tr("The servo acknowledged the values and did not keep those above. Read them again, and check whether "
                  "something else changes them.");
    case Outcome::NoAnswer:
    case Outcome::PortLost:
    case Outcome::Withdrawn:
        break;
    }
    return tr("The servo did not acknowledge the values. Check the cable and apply them again.");
}

QString ApplyText::row(const session::AppliedField &field) const
{
    const QString found = field.found ? bitsText(*field.field, *field.found) : tr("not known");
    return QStringLiteral("<tr><td>%1</td><td>%2</td><td>%3</td></tr>")
        .arg(caption(*field.field).toHtmlEscaped(), bitsText(*field.field, field.wanted).toHtmlEscaped(),
             found.toHtmlEscaped());
}
