#pragma once

#include "controllers/inputmodecontroller.h"
#include "controllers/operationmodecontroller.h"
#include "device/devicehelper.h"
#include "device/fieldhelper.h"
#include "device/statushelper.h"
#include "device/uiregisterhelper.h"
#include "link/processwide.h"
#include "link/serialhelper.h"
#include "settings/settingsdialog.h"
#include "tests/support/testenvironment.h"
#include "views/editview.h"
#include "widgets/uigrouphelper.h"
#include "widgets/zelvargrouptoolbutton.h"

/** An edit view with the helpers around it, fed with register tables in place of a servo. */
class ConnectedEditView
{
public:
    static constexpr int TableSize = 118;

    /** What a group has asked to be written. */
    struct Write
    {
        int address;
        QByteArray data;
    };
    /** The value of some registers, the lowest byte first. */
    struct Value
    {
        int address;
        int size;
        quint32 value;
    };

    /** @param unit the unit chosen for every quantity that has two. */
    explicit ConnectedEditView(int unit = 0)
    {
        qRegisterMetaType<uint8_t>("uint8_t");
        chooseUnits(unit);
        ProcessWide<DeviceHelper>::instance() = std::make_shared<DeviceHelper>(
            std::make_shared<SerialHelper>(), [] {},
            [] {
                return ModeDependencies{std::make_shared<OperationModeController>(),
                                        std::make_shared<InputModeController>()};
            });
        view = std::make_unique<EditView>();
        QObject::connect(&groups(), &UiGroupHelper::addQueueRequest, &groups(),
                         [this](uint8_t address, const QByteArray &data) {
                             writes.append({address, data});
                         });
    }
    /** With a servo that has been read. */
    explicit ConnectedEditView(const QByteArray &table, int unit = 0) : ConnectedEditView(unit)
    {
        connectAndFeed(table);
    }

    ~ConnectedEditView()
    {
        view.reset();
        ProcessWide<UiRegisterHelper>::instance().reset();
        ProcessWide<UiGroupHelper>::instance().reset();
        ProcessWide<StatusHelper>::instance().reset();
        ProcessWide<FieldHelper>::instance().reset();
        ProcessWide<DeviceHelper>::instance().reset();
    }

    Q_DISABLE_COPY(ConnectedEditView)

    /** Makes @p unit the choice in the settings dialog, as far as the quantities have it. */
    void chooseUnits(int unit)
    {
        QSettings store(QStringLiteral("Ostravel"), QStringLiteral("Zelvar Servo Manager"));
        for (const char *quantity : {"angularVelocity", "angle", "torque", "current", "temperature"})
            store.setValue(QStringLiteral("units settings/") + QLatin1String(quantity), unit);
        settings.reset();
        settings = std::make_unique<SettingsDialog>();
    }

    /** The link comes up with a servo of @p modelNumber: 12 is an AX-12, all others are the own family. */
    void connectTo(quint16 modelNumber)
    {
        groups().linkUp();
        QByteArray reply(13, '\0');
        put(reply, 5, 2, modelNumber);
        ProcessWide<DeviceHelper>::instance()->onModelNumberRead(reply);
    }

    /** A register table with the operating mode Joint and zeros, but for @p values. */
    static QByteArray jointTable(std::initializer_list<Value> values = {})
    {
        QByteArray table(TableSize, '\0');
        table[6] = 2;
        for (const Value &value : values)
            put(table, value.address, value.size, value.value);
        return table;
    }

    /** One poll that reads @p table. */
    static void feed(const QByteArray &table)
    {
        for (const auto &[address, item] : ProcessWide<UiRegisterHelper>::instance()->bindings())
            item->handler(qint32(number(table, address, item->size)));
    }

    /** A connection whose first poll, and the second, which the mode locks wait for, read @p table. */
    void connectAndFeed(const QByteArray &table)
    {
        connectTo(0x0102);
        feed(table);
        feed(table);
    }

    static quint32 number(const QByteArray &table, int address, int size)
    {
        quint32 value = 0;
        for (int i = 0; i < size && address + i < table.size(); ++i)
            value |= quint32(quint8(table[address + i])) << (8 * i);
        return value;
    }

    static void put(QByteArray &table, int address, int size, quint32 value)
    {
        for (int i = 0; i < size; ++i)
            table[address + i] = char(value >> (8 * i));
    }

    UiGroupHelper &groups() const { return *ProcessWide<UiGroupHelper>::instance(); }

    template <class Widget = QWidget>
    Widget &child(const char *objectName) const
    {
        auto *found = view->findChild<Widget *>(QLatin1String(objectName));
        if (!found)
            qFatal("no %s", objectName);
        return *found;
    }

    ZelvarGroupToolButton &editSave(const char *prefix) const
    {
        return child<ZelvarGroupToolButton>((prefix + std::string("ParamsEditSaveToolButton")).c_str());
    }

    ZelvarGroupToolButton &cancel(const char *prefix) const
    {
        return child<ZelvarGroupToolButton>((prefix + std::string("ParamsCancelToolButton")).c_str());
    }

    std::unique_ptr<SettingsDialog> settings;
    std::unique_ptr<EditView> view;
    QVector<Write> writes; ///< oldest first
};
