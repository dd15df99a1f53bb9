#pragma once

#include "device/iunitdatafield.h"
#include "device/tracked.h"
#include "link/registeritemhelper.h"
#include "model/registerimage.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

class IDevice;

/**
 * Passes polled register values on to the bound controls, and keeps the image of the connected servo's registers.
 *
 * The poll map is the own family's. While the connected servo is of another family, only the values of registers that
 * it has at the same place are passed on; without a device model nothing is kept or passed on. GUI thread only.
 */
class UiRegisterHelper
{
public:
    UiRegisterHelper();
    ~UiRegisterHelper();
    Q_DISABLE_COPY(UiRegisterHelper)

    /** The poll map; its handlers must not be called after this object is gone. */
    const RegisterBindings &bindings() const;

    /**
     * Binds @p field, which must be a QObject, under its object name. It stays its owner's and may be
     * destroyed at any time. Of several fields of one name, the one registered last that is still alive
     * gets the values.
     */
    void registerField(IUnitDataField *field);

    /** Keeps @p registers, the servo's whole table as it was read by a reply that was complete at @p when. */
    void take(const QByteArray &registers, model::RegisterImage::TimePoint when);
    /** What has been kept, also of a device that is not the current one any more: the same object each time. */
    std::shared_ptr<const model::RegisterImage> image() const;
    /**
     * The byte last read from the register at @p address of the current device, including registers that no
     * control shows and values that came while their group was edited. Nothing when it has not been read yet, and for
     * a device without a register map.
     */
    std::optional<quint8> lastByte(quint8 address) const;
    /**
     * Takes @p bytes, just written from @p address, for what the registers hold until they are read again; bytes
     * of registers that have not been read are passed over.
     */
    void assumeWritten(quint8 address, const QByteArray &bytes);
    /** Forgets every byte read so far. */
    void forgetValues();

private:
    using Fields = std::vector<Tracked<IUnitDataField>>;

    bool followsDevice();
    void record(quint8 address, quint8 size, quint32 bits);
    void pass(const model::Field &field, quint32 bits);
    void showValue(const char *objectName, qint32 value);
    Tracked<IUnitDataField> fieldOf(const char *objectName) const;

    RegisterBindings m_bindings;
    std::map<QString, Fields, std::less<>> m_fields;
    std::shared_ptr<model::RegisterImage> m_image = std::make_shared<model::RegisterImage>();
    /** Whose registers these are: those of an earlier connection must never be taken for the current servo's. */
    std::weak_ptr<IDevice> m_readFrom;
};
