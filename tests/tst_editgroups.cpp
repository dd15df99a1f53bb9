#include "tests/support/connectededitview.h"
#include "tests/support/testenvironment.h"

#include "widgets/zelvarcheckbox.h"
#include "widgets/zelvarcombobox.h"
#include "widgets/zelvardoublespinbox.h"
#include "widgets/zelvarspinbox.h"

#include <QRandomGenerator>
#include <QSignalSpy>

namespace {

/** Where a field's value stands in the servo. */
struct Place
{
    const char *control;
    const char *group;
    int address;
    int size;
    quint32 mask = 0xFFFFFFFF;
};

// clang-format off
constexpr Place Places[] = {
    {"idSpinBox",                               "nv", 3,  1},
    {"baudRateComboBox",                        "nv", 4,  1},
    {"ackResponseTimeSpinBox",                  "nv", 5,  1},
    {"operatingModeComboBox",                   "nv", 6,  1},
    {"clockwiseLimitDoubleSpinBox",             "nv", 7,  2},
    {"counterClockwiseLimitDoubleSpinBox",      "nv", 9,  2},
    {"temperatureLimitDoubleSpinBox",           "nv", 11, 1},
    {"minVoltageLimitDoubleSpinBox",            "nv", 12, 1},
    {"maxVoltageLimitDoubleSpinBox",            "nv", 13, 1},
    {"quadratureCurrentLimitDoubleSpinBox",     "nv", 14, 2},
    {"angularVelocityLimitDoubleSpinBox",       "nv", 16, 2},
    {"accelerationLimitDoubleSpinBox",          "nv", 18, 2},
    {"hornPositionOffsetDoubleSpinBox",         "nv", 20, 4},
    {"movingThresholdDoubleSpinBox",            "nv", 24, 2},
    {"inputModeComboBox",                       "nv", 26, 1},
    {"defPositionProportionalTermDoubleSpinBox","nv", 27, 2},
    {"defVelocityFeedforwardTermDoubleSpinBox", "nv", 29, 2},
    {"defCurrentFeedforwardTermDoubleSpinBox",  "nv", 31, 2},
    {"defVelocityIntegralTermDoubleSpinBox",    "nv", 33, 2},
    {"defVelocityProportionalTermDoubleSpinBox","nv", 35, 2},
    {"defAngularVelocityProfileDoubleSpinBox",  "nv", 37, 2},
    {"defAccelerationProfileDoubleSpinBox",     "nv", 39, 2},
    {"enableMotorCheckBox",                     "v",  48, 1},
    {"pendingShadowInstructionCheckBox",        "v",  49, 1},
    {"positionProportionalTermDoubleSpinBox",   "v",  54, 2},
    {"velocityFeedforwardTermDoubleSpinBox",    "v",  56, 2},
    {"currentFeedforwardTermDoubleSpinBox",     "v",  58, 2},
    {"velocityIntegralTermDoubleSpinBox",       "v",  60, 2},
    {"velocityProportionalTermDoubleSpinBox",   "v",  62, 2},
    {"angularVelocityProfileDoubleSpinBox",     "v",  68, 2},
    {"accelerationProfileDoubleSpinBox",        "v",  70, 2},
    {"targetPositionDoubleSpinBox",             "v",  78, 4},
    {"targetAngularVelocityDoubleSpinBox",      "v",  82, 2, 0x7FFF},
    {"targetAngularVelocityDirectionComboBox",  "v",  82, 2, 0x8000},
    {"targetTorqueDoubleSpinBox",               "v",  84, 2, 0x7FFF},
    {"targetTorqueDirectionComboBox",           "v",  84, 2, 0x8000},
};
// clang-format on

struct Block
{
    int address;
    int size;
};

Block blockOf(const Place &place)
{
    return place.group == std::string("nv") ? Block{3, 38} : Block{48, 60};
}

/** What @p place's register holds once value() of its control has been written. */
quint32 registerBits(const Place &place, int value)
{
    if (place.address == 4)
        return quint32(SerialHelper::baudRateRegisterValue(value));
    return place.mask == 0x8000 ? (value > 0 ? 0x8000u : 0u) : quint32(value);
}

void replaceField(QByteArray &table, const Place &place, quint32 bits)
{
    const quint32 kept = ConnectedEditView::number(table, place.address, place.size) & ~place.mask;
    ConnectedEditView::put(table, place.address, place.size, kept | (bits & place.mask));
}

/** Bytes that no register of that kind need hold, so that nothing that is written back can hide. */
QByteArray randomTable(QRandomGenerator &random)
{
    QByteArray table(ConnectedEditView::TableSize, '\0');
    for (char &byte : table)
        byte = char(random.bounded(256));
    return table;
}

QByteArray jointTable()
{
    QByteArray table(ConnectedEditView::TableSize, '\0');
    table[6] = 2;
    return table;
}

/** Changes a control to something else, as its user would be able to. */
void change(QWidget &control, QRandomGenerator &random)
{
    if (auto *list = qobject_cast<ZelvarComboBox *>(&control))
        list->setCurrentIndex((list->currentIndex() + 1 + random.bounded(list->count() - 2)) %
                              (list->count() - 1));
    else if (auto *box = qobject_cast<QCheckBox *>(&control))
        box->toggle();
    else if (auto *integer = qobject_cast<QSpinBox *>(&control))
        integer->setValue(random.bounded(integer->minimum(), integer->maximum()));
    else if (auto *number = qobject_cast<QDoubleSpinBox *>(&control))
        number->setValue(number->minimum() +
                         random.generateDouble() * (number->maximum() - number->minimum()));
}

} // namespace

class TestEditGroups : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void applyNeedsAnEdit();
    void cancelRestores();
    void singleEdits_data();
    void singleEdits();
    void randomSingleEdits();
    void blocksOfWhatWasNeverRead();
    void editsWaitForTheFirstValues();
    void pollsLeaveEditsAlone();
    void editsAppliedBeforeThePollAddUp();
    void lockingWithdrawsAnEdit();
    void motorInhibitsNonVolatileEdits();
    void disconnectDropsEdits();
    void secondViewOutlivesTheFirst();
    void helpersOutliveTheView();
    void tabOrder();
};

void TestEditGroups::applyNeedsAnEdit()
{
    ConnectedEditView fixture;
    auto &button = fixture.editSave("nv");
    QVERIFY(!button.isEnabled());
    fixture.connectAndFeed(jointTable());
    QVERIFY(button.isEnabled());
    QVERIFY(!fixture.cancel("nv").isEnabled());

    button.click();
    QCOMPARE(button.text(), QStringLiteral("Apply"));
    QVERIFY(!button.isEnabled());
    QVERIFY(fixture.cancel("nv").isEnabled());

    auto &id = fixture.child<QSpinBox>("idSpinBox");
    auto &temperature = fixture.child<QDoubleSpinBox>("temperatureLimitDoubleSpinBox");
    id.setValue(5);
    temperature.setValue(60);
    id.setValue(6);
    QVERIFY(button.isEnabled());
    temperature.setValue(0);
    QVERIFY(button.isEnabled());
    id.setValue(0);
    QVERIFY(!button.isEnabled());

    id.setValue(7);
    button.click();
    QCOMPARE(button.text(), QStringLiteral("Edit"));
    QVERIFY(button.isEnabled());
    QVERIFY(!id.isEnabled());
    button.click();
    QVERIFY(!button.isEnabled());
}

void TestEditGroups::cancelRestores()
{
    ConnectedEditView fixture;
    QSignalSpy writes(&fixture.groups(), &UiGroupHelper::addQueueRequest);
    QByteArray table = jointTable();
    table[3] = 9;
    fixture.connectAndFeed(table);
    fixture.editSave("nv").click();
    fixture.child<QSpinBox>("idSpinBox").setValue(5);
    fixture.child<QComboBox>("operatingModeComboBox").setCurrentIndex(0);
    fixture.cancel("nv").click();
    QCOMPARE(fixture.child<QSpinBox>("idSpinBox").text(), QStringLiteral("9"));
    QCOMPARE(fixture.child<QComboBox>("operatingModeComboBox").currentText(), QStringLiteral("Joint"));
    QCOMPARE(fixture.editSave("nv").text(), QStringLiteral("Edit"));
    QVERIFY(fixture.editSave("nv").isEnabled());
    QVERIFY(!fixture.cancel("nv").isEnabled());
    QVERIFY(!fixture.child("idSpinBox").isEnabled());
    QVERIFY(writes.isEmpty());
}

void TestEditGroups::singleEdits_data()
{
    QTest::addColumn<int>("place");
    for (int i = 0; i < int(std::size(Places)); ++i)
        QTest::newRow(Places[i].control) << i;
}

// Each field alone, over bytes of 0xA5: exactly its registers change, little-endian.
void TestEditGroups::singleEdits()
{
    QFETCH(int, place);
    const Place &edited = Places[place];
    ConnectedEditView fixture;
    QSignalSpy writes(&fixture.groups(), &UiGroupHelper::addQueueRequest);
    QByteArray table(ConnectedEditView::TableSize, '\xA5');
    table[48] = 0; // with the motor on, the non-volatile group could not be edited
    fixture.connectAndFeed(table);
    auto &control = fixture.child(edited.control);
    dynamic_cast<IZelvarField &>(control).setLocked(false);
    fixture.editSave(edited.group).click();
    QVERIFY(control.isEnabled());
    QRandomGenerator random(1);
    change(control, random);
    QVERIFY(dynamic_cast<IGroupInputComponent &>(control).isDirty());
    const int value = dynamic_cast<IUnitDataField &>(control).value();
    fixture.editSave(edited.group).click();

    QByteArray expected = table;
    replaceField(expected, edited, registerBits(edited, value));
    const Block block = blockOf(edited);
    QCOMPARE(writes.size(), 1);
    QCOMPARE(int(writes.first().at(0).value<uint8_t>()), block.address);
    QCOMPARE(writes.first().at(1).toByteArray().toHex(), expected.mid(block.address, block.size).toHex());
}

void TestEditGroups::randomSingleEdits()
{
    QRandomGenerator random(20);
    for (int unit : {0, 1}) {
        ConnectedEditView fixture(unit);
        QSignalSpy writes(&fixture.groups(), &UiGroupHelper::addQueueRequest);
        int edits = 0;
        for (int round = 0; round < 60; ++round) {
            QByteArray table = randomTable(random);
            table[48] = 0;
            if (round % 4 != 0)
                table[6] = char(random.bounded(5));
            fixture.connectAndFeed(table);

            const Place &edited = Places[random.bounded(int(std::size(Places)))];
            auto &control = fixture.child(edited.control);
            fixture.editSave(edited.group).click();
            if (control.isEnabled())
                change(control, random);
            fixture.feed(table);
            const bool dirty = dynamic_cast<IGroupInputComponent &>(control).isDirty();
            QCOMPARE(fixture.editSave(edited.group).isEnabled(), dirty);
            if (dirty) {
                const int value = dynamic_cast<IUnitDataField &>(control).value();
                fixture.editSave(edited.group).click();
                const Block block = blockOf(edited);
                QByteArray expected = table;
                replaceField(expected, edited, registerBits(edited, value));
                QCOMPARE(writes.size(), 1);
                QVERIFY2(writes.first().at(1).toByteArray() == expected.mid(block.address, block.size),
                         edited.control);
                ++edits;
            }
            writes.clear();
            fixture.groups().linkDown();
        }
        QVERIFY(edits > 30);
    }
}

void TestEditGroups::blocksOfWhatWasNeverRead()
{
    // Values that came past the register bindings: every field goes in, and nothing is known of the rest.
    ConnectedEditView fixture;
    QSignalSpy writes(&fixture.groups(), &UiGroupHelper::addQueueRequest);
    fixture.connectTo(0x0102);
    QByteArray expected(ConnectedEditView::TableSize, '\0');
    for (const Place &place : Places) {
        auto &field = dynamic_cast<IUnitDataField &>(fixture.child(place.control));
        field.setValue(1);
        replaceField(expected, place, registerBits(place, field.value()));
    }
    for (const char *group : {"nv", "v"}) {
        fixture.child<ZelvarCheckBox>("enableMotorCheckBox").setChecked(false);
        fixture.editSave(group).click();
        fixture.editSave(group).setEnabled(true);
        fixture.editSave(group).click();
    }
    replaceField(expected, {"enableMotorCheckBox", "v", 48, 1}, 0);
    QCOMPARE(writes.size(), 2);
    QCOMPARE(writes[0].at(1).toByteArray().toHex(), expected.mid(3, 38).toHex());
    QCOMPARE(writes[1].at(1).toByteArray().toHex(), expected.mid(48, 60).toHex());
}

void TestEditGroups::editsWaitForTheFirstValues()
{
    ConnectedEditView fixture;
    fixture.connectTo(0x0102);
    fixture.editSave("nv").click();
    auto &id = fixture.child<QSpinBox>("idSpinBox");
    QVERIFY(!id.isEnabled());
    QByteArray table = jointTable();
    table[3] = 9;
    fixture.feed(table);
    QVERIFY(id.isEnabled());
    QCOMPARE(id.text(), QStringLiteral("9"));
    table[3] = 10;
    fixture.feed(table);
    QCOMPARE(id.text(), QStringLiteral("9"));
}

void TestEditGroups::pollsLeaveEditsAlone()
{
    ConnectedEditView fixture;
    QSignalSpy writes(&fixture.groups(), &UiGroupHelper::addQueueRequest);
    QByteArray table = jointTable();
    fixture.connectAndFeed(table);
    fixture.editSave("nv").click();
    fixture.child<QSpinBox>("idSpinBox").setValue(5);
    // Meanwhile somebody else changes another register: it is not shown, but it is not taken back either.
    table[11] = 77;
    fixture.feed(table);
    QCOMPARE(fixture.child<QSpinBox>("idSpinBox").text(), QStringLiteral("5"));
    QCOMPARE(fixture.child<QDoubleSpinBox>("temperatureLimitDoubleSpinBox").text(), QStringLiteral("0"));
    fixture.editSave("nv").click();
    QCOMPARE(writes.first().at(1).toByteArray()[0], '\5');
    QCOMPARE(int(writes.first().at(1).toByteArray()[8]), 77);
}

void TestEditGroups::editsAppliedBeforeThePollAddUp()
{
    ConnectedEditView fixture;
    QSignalSpy writes(&fixture.groups(), &UiGroupHelper::addQueueRequest);
    fixture.connectAndFeed(jointTable());
    auto &id = fixture.child<QSpinBox>("idSpinBox");
    fixture.editSave("nv").click();
    id.setValue(5);
    fixture.editSave("nv").click();
    fixture.editSave("nv").click();
    fixture.child<QDoubleSpinBox>("temperatureLimitDoubleSpinBox").setValue(60);
    fixture.editSave("nv").click();
    QCOMPARE(writes.size(), 2);
    QCOMPARE(writes[1].at(1).toByteArray()[0], '\5');
    QCOMPARE(int(writes[1].at(1).toByteArray()[8]), 60);
    // The servo has the last word.
    fixture.feed(jointTable());
    QCOMPARE(id.text(), QStringLiteral("0"));
}

void TestEditGroups::lockingWithdrawsAnEdit()
{
    ConnectedEditView fixture;
    QSignalSpy writes(&fixture.groups(), &UiGroupHelper::addQueueRequest);
    fixture.connectAndFeed(jointTable());
    fixture.editSave("v").click();
    fixture.child<QDoubleSpinBox>("targetPositionDoubleSpinBox").setValue(1.0);
    QVERIFY(fixture.editSave("v").isEnabled());
    QByteArray wheel = jointTable();
    wheel[6] = 1;
    fixture.feed(wheel);
    fixture.feed(wheel);
    QVERIFY(!fixture.editSave("v").isEnabled());
    fixture.child<QDoubleSpinBox>("targetAngularVelocityDoubleSpinBox").setValue(1.0);
    fixture.editSave("v").click();
    QCOMPARE(writes.first().at(1).toByteArray().mid(30, 4), QByteArray(4, '\0'));
}

void TestEditGroups::motorInhibitsNonVolatileEdits()
{
    ConnectedEditView fixture;
    auto &nonVolatile = fixture.editSave("nv");
    QByteArray table = jointTable();
    fixture.connectAndFeed(table);
    QVERIFY(nonVolatile.isEnabled());
    table[48] = 1;
    fixture.feed(table);
    QVERIFY(!nonVolatile.isEnabled());

    fixture.editSave("v").click();
    fixture.child<QCheckBox>("enableMotorCheckBox").setChecked(false);
    QVERIFY(!nonVolatile.isEnabled());
    fixture.cancel("v").click();
    QVERIFY(!nonVolatile.isEnabled());
    fixture.editSave("v").click();
    fixture.child<QCheckBox>("enableMotorCheckBox").setChecked(false);
    fixture.editSave("v").click();
    QVERIFY(nonVolatile.isEnabled());

    fixture.groups().linkDown();
    QVERIFY(!nonVolatile.isEnabled());
    fixture.connectAndFeed(table);
    QVERIFY(!nonVolatile.isEnabled());
    fixture.groups().linkDown();
    QVERIFY(!nonVolatile.isEnabled());
    fixture.connectTo(0x0102);
    QVERIFY(nonVolatile.isEnabled());
}

void TestEditGroups::disconnectDropsEdits()
{
    ConnectedEditView fixture;
    QSignalSpy writes(&fixture.groups(), &UiGroupHelper::addQueueRequest);
    fixture.connectAndFeed(jointTable());
    auto &id = fixture.child<QSpinBox>("idSpinBox");
    fixture.editSave("nv").click();
    id.setValue(5);
    fixture.groups().linkDown();
    QCOMPARE(id.text(), QString());
    QVERIFY(!id.isEnabled());
    QCOMPARE(fixture.child<QComboBox>("operatingModeComboBox").currentText(), QStringLiteral("-"));
    QCOMPARE(fixture.editSave("nv").text(), QStringLiteral("Edit"));
    QVERIFY(!fixture.editSave("nv").isEnabled());
    QVERIFY(!fixture.cancel("nv").isEnabled());
    QVERIFY(writes.isEmpty());

    fixture.connectAndFeed(jointTable());
    QCOMPARE(id.text(), QStringLiteral("0"));
    fixture.editSave("nv").click();
    QVERIFY(!fixture.editSave("nv").isEnabled());
}

void TestEditGroups::secondViewOutlivesTheFirst()
{
    ConnectedEditView fixture;
    const auto helper = ProcessWide<UiGroupHelper>::instance();
    auto second = std::make_unique<EditView>();
    QCOMPARE(ProcessWide<UiGroupHelper>::instance(), helper);
    auto *secondId = dynamic_cast<ZelvarSpinBox *>(second->findChild<QWidget *>(QStringLiteral("idSpinBox")));
    secondId->connected();
    fixture.view.reset();
    fixture.connectTo(0x0102);
    QByteArray table = jointTable();
    table[3] = 9;
    fixture.feed(table);
    fixture.feed(table);
    QCOMPARE(secondId->text(), QStringLiteral("9"));
    ProcessWide<StatusHelper>::instance()->update(1);
}

void TestEditGroups::helpersOutliveTheView()
{
    ConnectedEditView fixture;
    fixture.connectAndFeed(jointTable());
    fixture.editSave("nv").click();
    fixture.view.reset();
    fixture.feed(jointTable());
    ProcessWide<StatusHelper>::instance()->update(1);
    fixture.groups().linkDown();
    fixture.groups().linkUp();
}

void TestEditGroups::tabOrder()
{
    ConnectedEditView fixture;
    const QStringList expected = {"actualPositionLineEdit",
                                  "isMovingCheckBox",
                                  "firmwareVersionLineEdit",
                                  "inputVoltageStatusCheckBox",
                                  "nvParamsEditSaveToolButton",
                                  "baudRateComboBox",
                                  "operatingModeComboBox",
                                  "clockwiseLimitDoubleSpinBox",
                                  "movingThresholdDoubleSpinBox",
                                  "vParamsEditSaveToolButton",
                                  "targetTorqueDirectionComboBox",
                                  "pendingShadowInstructionCheckBox",
                                  "scrollArea"};
    QStringList met;
    QWidget *const first = &fixture.child("actualPositionLineEdit");
    QWidget *widget = first;
    do {
        if (expected.contains(widget->QObject::objectName()))
            met << widget->QObject::objectName();
        widget = widget->nextInFocusChain();
    } while (widget != first);
    QCOMPARE(met, expected);

    // Every input of a group is reached from its button with Tab alone.
    for (const char *group : {"nv", "v"}) {
        QSet<QString> reached;
        QWidget *start = &fixture.editSave(group);
        for (QWidget *next = start->nextInFocusChain(); next != start; next = next->nextInFocusChain()) {
            if (next->focusPolicy() & Qt::TabFocus)
                reached << next->QObject::objectName();
        }
        for (const Place &place : Places)
            QVERIFY2(reached.contains(QLatin1String(place.control)), place.control);
    }
}

ZELVAR_TEST_MAIN(TestEditGroups)
#include "tst_editgroups.moc"
