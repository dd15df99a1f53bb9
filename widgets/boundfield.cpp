#include "widgets/boundfield.h"

#include "device/devicehelper.h"
#include "device/ieditgroup.h"
#include "device/unitshelper.h"
#include "model/rawscale.h"
#include "widgets/fieldtooltip.h"
#include "widgets/followeddevice.h"

#include <QLocale>
#include <QStringList>
#include <QWidget>

#include <cmath>

namespace {

// A fraction of one raw count: far below what counts, far above the rounding of double arithmetic.
constexpr double Noise = 1e-6;

} // namespace

BoundField::BoundField(QWidget &widget)
    : m_widget(widget), m_parentGroup(dynamic_cast<const IEditGroup *>(widget.parentWidget()))
{
    widget.setEnabled(false);
}

BoundField::~BoundField() = default;

void BoundField::setEditable(bool enable)
{
    if (m_locked || m_support == Support::Undefined)
        return;
    if (!enable)
        finishTyping();
    if (!enable && m_dirty) {
        // Applied: this counts as the servo's value until the servo tells.
        storeShown();
        m_shownRaw.reset();
    }
    m_widget.setEnabled(enable);
    clearDirty();
    refreshMark();
}

void BoundField::restoreValue()
{
    // First, while the widget is enabled: it makes the field clean, which setEditable() would take for applied else.
    showStored();
    setEditable(false);
}

bool BoundField::isDirty() const
{
    return m_dirty;
}

bool BoundField::awaitsValue() const
{
    return m_support == Support::Defined && !m_valueReceived;
}

void BoundField::beginPending()
{
    m_applied = Applied::AwaitsProof;
    refreshMark();
}

void BoundField::endPending()
{
    if (m_applied == Applied::AwaitsProof)
        m_applied = Applied::AwaitsValue;
}

void BoundField::connected()
{
    if (m_connected)
        return;
    m_units = currentUnits();
    followDeviceLoaded(m_widget);
    m_connected = true;
    adaptToLink();
}

void BoundField::disconnected()
{
    if (!m_connected)
        return;
    cutDeviceLoaded();
    m_connected = false;
    adaptToLink();
    storePlaceholder();
    forgetDevice();
    restoreValue();
    refreshBlank();
}

void BoundField::forgetDevice()
{
    m_support = Support::Unknown;
    m_limits.reset();
    m_shownRaw.reset();
    m_applied = Applied::Read;
    m_valueReceived = false;
    m_registersText.clear();
    m_objection.clear();
    refreshToolTip();
}

void BoundField::takeDevice()
{
    const std::shared_ptr<const IDevice> device = DeviceHelper::currentDevice();
    forgetDevice();
    if (!device || !isDefinedBy(*device)) {
        m_support = Support::Undefined;
        disable(true);
    } else {
        m_support = Support::Defined;
        if (device->definesField(objectName())) {
            m_limits = device->limits(objectName());
            adaptToDevice();
        }
        m_registersText = FieldToolTip::registerText(*device, objectName());
        refreshToolTip();
    }
    refreshBlank();
}

bool BoundField::isDefinedBy(const IDevice &device) const
{
    return device.definesField(objectName());
}

void BoundField::setLocked(bool lock)
{
    const bool wasLocked = m_locked;
    if (wasLocked && !lock)
        showStored();
    else if (!wasLocked && lock)
        markDirty(false);
    disable(lock || !isGroupEdited() || m_support == Support::Undefined || awaitsValue());
    m_locked = lock;
    if (wasLocked != lock) {
        refreshBlank();
        refreshMark();
    }
}

qint32 BoundField::fieldId() const
{
    return m_fieldId;
}

void BoundField::setValue(int raw)
{
    // What was read before the proof may be older than what was applied.
    if (!m_connected || m_support != Support::Defined || m_dirty || m_applied == Applied::AwaitsProof)
        return;
    if (m_applied != Applied::Read) {
        m_applied = Applied::Read;
        refreshMark();
    }
    // Most polls bring what is shown already; those must cost nothing.
    if (m_shownRaw == raw && showsStored())
        return;
    m_showsServoValue = true;
    showRaw(raw);
    m_showsServoValue = false;
    storeShown();
    m_shownRaw = raw;
    const bool isFirst = !m_valueReceived;
    m_valueReceived = true;
    refreshBlank();
    if (isFirst && isGroupEdited())
        setEditable(true);
}

void BoundField::overrule(int raw)
{
    markDirty(false);
    setValue(raw);
}

void BoundField::applyDependency()
{
    if (m_limits && m_limits->controller)
        m_limits->controller->applyDependency();
}

void BoundField::refreshBlank()
{
    m_widget.update();
}

void BoundField::disable(bool disabled)
{
    m_widget.setDisabled(disabled);
}

void BoundField::trackEdit()
{
    if (m_widget.isEnabled() && !m_showsServoValue)
        markDirty(isEdited());
}

// The group's save button counts these signals, so there is exactly one for each turn.
void BoundField::markDirty(bool dirty)
{
    if (m_dirty == dirty)
        return;
    m_dirty = dirty;
    refreshMark();
    setIsDirty(dirty);
}

void BoundField::clearDirty()
{
    m_dirty = false;
}

void BoundField::setFieldId(qint32 id)
{
    m_fieldId = id;
}

bool BoundField::hasUnit() const
{
    return model::isQuantity(model::FieldKind(m_fieldId));
}

bool BoundField::isNumber() const
{
    return model::isNumber(model::FieldKind(m_fieldId));
}

BoundField::Range BoundField::shownRange() const
{
    return {m_units->toDisplay(m_limits->physicalMin, m_fieldId), m_units->toDisplay(m_limits->physicalMax, m_fieldId)};
}

QString BoundField::rangeText() const
{
    if (!m_limits || !isNumber())
        return {};
    // As it may be typed: without the separators that the controls refuse.
    QLocale locale = m_widget.locale();
    locale.setNumberOptions(locale.numberOptions() | QLocale::OmitGroupSeparator);
    const auto text = [&](double number) { return locale.toString(number, 'f', shownDecimals()); };
    const Range range = shownRange();
    const QString unit = hasUnit() ? m_units->unitName(m_fieldId) : QString();
    return FieldToolTip::rangeText(text(range.minimum), text(range.maximum), unit);
}

void BoundField::objectTo(const QString &objection)
{
    if (m_objection == objection)
        return;
    m_objection = objection;
    refreshToolTip();
    m_widget.update();
}

bool BoundField::isObjectedTo() const
{
    return !m_objection.isEmpty();
}

/** What is known of the field in the tip; what the user might get wrong without it also for a screen reader. */
void BoundField::refreshToolTip()
{
    const bool isRegisterKnown = !m_registersText.isEmpty();
    QStringList remarks;
    // What a status means holds without a servo, too.
    if (isRegisterKnown || !isNumber())
        remarks << FieldToolTip::remarkText(objectName(), hasUnit() ? m_units->unitName(m_fieldId) : QString());
    if (isRegisterKnown)
        remarks << m_objection;
    remarks << markText();
    QStringList lines{m_registersText};
    if (isRegisterKnown)
        lines << rangeText();
    lines << remarks;
    remarks.removeAll(QString());
    lines.removeAll(QString());
    m_widget.setToolTip(lines.join(QLatin1Char('\n')));
    m_widget.setAccessibleDescription(remarks.join(QLatin1Char(' ')));
}

FieldMark::Kind BoundField::markKind() const
{
    if (isBlank())
        return FieldMark::Kind::None;
    if (m_dirty)
        return FieldMark::Kind::Changed;
    return m_applied == Applied::Read ? FieldMark::Kind::None : FieldMark::Kind::Pending;
}

QString BoundField::markText() const
{
    if (m_markKind == FieldMark::Kind::None)
        return {};
    if (m_markKind == FieldMark::Kind::Pending)
        return FieldToolTip::pendingText();
    const QString unit = hasUnit() ? m_units->unitName(m_fieldId) : QString();
    const QString value = unit.isEmpty() ? storedText() : storedText() + QLatin1Char(' ') + unit;
    return m_applied == Applied::Read ? FieldToolTip::changedText(value) : FieldToolTip::changedAgainText(value);
}

void BoundField::refreshMark()
{
    const FieldMark::Kind kind = markKind();
    if (kind == m_markKind)
        return;
    m_markKind = kind;
    refreshToolTip();
    if (kind == FieldMark::Kind::None) {
        m_mark.reset();
        return;
    }
    if (!m_mark)
        m_mark = std::make_unique<FieldMark>(m_widget);
    m_mark->mark(kind, markText());
}

int BoundField::shownDecimals() const
{
    if (hasUnit())
        return m_units->decimals(m_fieldId);
    return model::stepDecimals(*m_limits);
}

double BoundField::toShown(const model::RawScale &scale, int raw) const
{
    return m_units->toDisplay(scale.toPhysical(raw), m_fieldId);
}

int BoundField::toRaw(const model::RawScale &scale, double shown) const
{
    const double physical = m_units->fromDisplay(shown, m_fieldId);
    const double noise = Noise * (scale.toPhysical(1) - scale.toPhysical(0));
    const int below = scale.toRaw(physical - noise);
    const int above = scale.toRaw(physical + noise);
    return std::abs(below) > std::abs(above) ? below : above;
}

bool BoundField::isConnected() const
{
    return m_connected;
}

bool BoundField::isLocked() const
{
    return m_locked;
}

bool BoundField::isBlank() const
{
    return !m_connected || !m_valueReceived || m_locked;
}

const FieldLimits *BoundField::limits() const
{
    return m_limits ? &*m_limits : nullptr;
}

const UnitsHelper &BoundField::units() const
{
    return *m_units;
}

bool BoundField::isGroupEdited() const
{
    return m_parentGroup && m_parentGroup->editMode();
}
