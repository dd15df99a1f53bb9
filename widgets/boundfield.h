#pragma once

#include "device/fieldlimits.h"
#include "device/iconnectinfo.h"
#include "device/igroupinputcomponent.h"
#include "device/iunitdatafield.h"
#include "widgets/fieldmark.h"

#include <QString>
#include <QtGlobal>

#include <memory>
#include <optional>

class IDevice;
class IEditGroup;
class QWidget;
class UnitsHelper;

namespace model {
class RawScale;
}

/**
 * The behaviour that all bound controls share: following the link and the device model, showing values from
 * the servo, tracking the user's edits, and the locks of the mode controllers. What a kind of control does
 * its own way is in the protected virtuals.
 *
 * It is the second base of a widget (see BoundInput) and lives and dies with it. GUI thread only.
 */
class BoundField : public IGroupInputComponent, public IConnectInfo, public IUnitDataField
{
public:
    ~BoundField() override;
    Q_DISABLE_COPY(BoundField)

    void setEditable(bool enable) override;
    void restoreValue() override;
    bool isDirty() const override;
    bool awaitsValue() const override;
    void beginPending() override;
    void endPending() override;

    void connected() override;
    void disconnected() override;

    void setLocked(bool lock) override;
    qint32 fieldId() const override;
    /**
     * Shows @p raw while the link is up, unless the device model lacks the field, the user has changed it, or what was
     * applied is not proved yet.
     */
    void setValue(int raw) override;
    /** Shows @p raw as the servo's value, also in place of what the user has entered. */
    void overrule(int raw);
    void applyDependency() override;

    /** Marks the field and tells in its tip what is wrong with what it shows; empty when nothing is any more. */
    void objectTo(const QString &objection);

protected:
    /** Ends of a range in the display unit. */
    struct Range
    {
        double minimum;
        double maximum;
    };

    /** @param widget the whole of which this is a part; its parent decides which group it is edited with. */
    explicit BoundField(QWidget &widget);

    /** Shows @p raw in the widget; limits() and units() are there for the conversion when the model has them. */
    virtual void showRaw(int raw) = 0;
    /** Takes what the widget shows as the last value from the servo. */
    virtual void storeShown() = 0;
    virtual void storePlaceholder() = 0;
    /** Shows the last value from the servo, or the placeholder. */
    virtual void showStored() = 0;
    virtual bool showsStored() const = 0;
    /** The last value from the servo as the widget would show it, without a unit. */
    virtual QString storedText() const = 0;
    /** Whether the widget shows something that the user entered and that is not the servo's value. */
    virtual bool isEdited() const = 0;

    virtual bool isDefinedBy(const IDevice &device) const;
    /** The limits of the connected device are known: set range, step and the like. */
    virtual void adaptToDevice() {}
    /** The link went up or down; isConnected() tells already. */
    virtual void adaptToLink() {}
    /** isBlank() may have changed, or a value has been shown. */
    virtual void refreshBlank();
    /** Editing ends: text that is no value gives way to the last value from the servo. */
    virtual void finishTyping() {}
    virtual void disable(bool disabled);
    /** Whether the user is to see that there is something wrong with the field. */
    virtual bool isMarked() const { return false; }

    /** For the slot on_deviceLoaded() of the concrete class. */
    void takeDevice();
    /** For the value slot of the concrete class. */
    void trackEdit();
    void clearDirty();
    void setFieldId(qint32 id);

    /** Whether the field is a quantity of the unit table. */
    bool hasUnit() const;
    /** Whether the field is a number, which is what has a range worth telling; the others are choices and codes. */
    bool isNumber() const;
    /** What the field can hold, as the widget shows it. REQUIRES: limits(). */
    virtual Range shownRange() const;
    /** shownRange() for the user, as it may be typed; empty for what is no number. */
    QString rangeText() const;
    /** Decimals to show: those of the unit, or as many as one raw step needs. REQUIRES: limits(). */
    int shownDecimals() const;
    /** @p raw in the display unit. REQUIRES: limits(). */
    double toShown(const model::RawScale &scale, int raw) const;
    /**
     * The raw value of @p shown in the display unit, truncated toward zero; a whole count that only the
     * rounding of double arithmetic takes below itself stays whole. REQUIRES: limits().
     */
    int toRaw(const model::RawScale &scale, double shown) const;

    bool isConnected() const;
    bool isLocked() const;
    bool isObjectedTo() const;
    /** Whether there is no value to show: no link, nothing received yet, or out of use. */
    bool isBlank() const;
    /** Null until the device model is loaded, and when it lacks the field. */
    const FieldLimits *limits() const;
    /** The units chosen when the link went up. REQUIRES: limits(). */
    const UnitsHelper &units() const;

private:
    enum class Support { Unknown, Defined, Undefined };
    /** How far the value that was applied last is known to be the servo's. */
    enum class Applied { Read, AwaitsProof, AwaitsValue };

    bool isGroupEdited() const;
    void markDirty(bool dirty);
    void forgetDevice();
    void refreshToolTip();
    void refreshMark();
    FieldMark::Kind markKind() const;
    QString markText() const;

    QWidget &m_widget;
    const IEditGroup *m_parentGroup; ///< null outside a group
    qint32 m_fieldId = -1;
    Support m_support = Support::Unknown;
    std::optional<FieldLimits> m_limits;
    std::unique_ptr<const UnitsHelper> m_units;
    std::optional<int> m_shownRaw;
    QString m_registersText;
    QString m_objection;
    Applied m_applied = Applied::Read;
    std::unique_ptr<FieldMark> m_mark;
    FieldMark::Kind m_markKind = FieldMark::Kind::None;
    bool m_connected = false;
    bool m_valueReceived = false;
    bool m_dirty = false;
    bool m_locked = false;
    bool m_showsServoValue = false;
};
