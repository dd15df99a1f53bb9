#pragma once

#include "device/iunitdatafield.h"
#include "device/tracked.h"
#include "link/registeritemhelper.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

class IDevice;

namespace pollmap {
struct Item;
}

/**
 * Passes polled register values on to the bound controls, and keeps the raw bytes last read.
 *
 * The poll map is the own family's. While the connected servo has no register map, only the registers that
 * all models have in common are passed on, and no bytes are kept; without a device model nothing is. GUI
 * thread only.
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

    /**
     * The byte last read from the register at @p address of the current device, including registers that no
     * control shows and values that came while their group was edited. Nothing when it has not been read yet.
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

    void receive(const pollmap::Item &item, qint32 assembled);
    void recordBytes(const std::shared_ptr<IDevice> &device, const pollmap::Item &item, quint32 assembled);
    void show(const pollmap::Item &item, qint32 value);
    void showMagnitudeAndDirection(const pollmap::Item &item, qint32 value);
    void showHardwareErrors(qint32 status);
    void showValue(const char *objectName, qint32 value);
    Tracked<IUnitDataField> fieldOf(const char *objectName) const;

    RegisterBindings m_bindings;
    std::map<QString, Fields, std::less<>> m_fields;
    std::map<quint8, quint8> m_lastBytes;
    /**
     * Whose bytes m_lastBytes are: those of an earlier connection must never be taken for the current servo's.
     */
    std::weak_ptr<IDevice> m_readFrom;
};
