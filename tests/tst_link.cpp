// The serial helper's counting of reply bytes and the scheduler's ticks, over a serial port that does what the test
// says.

#include "link/ipolltarget.h"
#include "link/serialhelper.h"
#include "link/uischeduler.h"
#include "tests/support/fakeserialport.h"
#include "tests/support/testenvironment.h"

namespace {
/** A poll target with a walk from 0 to 119 that writes down what reaches it. */
class RecordingTarget : public IPollTarget
{
public:
    RecordingTarget()
    {
        for (int address = 0; address < 120; address += 4)
            bindings[quint8(address)] = std::make_shared<RegisterItemHelper>(
                RegisterItemHelper{4, [this, address](qint32 value) { handled[address] = value; }});
    }

    const RegisterBindings &registerBindings() const override { return bindings; }
    quint8 readLength() const override { return 118; }
    void updateRegister(quint16 address, quint8, quint32 value) override { shown[address] = value; }
    void updateStatus(qint8 error) override { errors.append(error); }

    RegisterBindings bindings;
    QMap<int, qint32> handled;
    QMap<int, quint32> shown;
    QList<int> errors;
};

} // namespace

class TestLink : public QObject
{
    Q_OBJECT

    std::shared_ptr<FakeSerialPort> m_port;
    std::shared_ptr<SerialHelper> m_helper;
    QList<QByteArray> m_replies;

    std::function<void(QByteArray)> collect()
    {
        return [this](const QByteArray &reply) { m_replies.append(reply); };
    }
private Q_SLOTS:
    void init()
    {
        m_port = std::make_shared<FakeSerialPort>();
        m_helper = std::make_shared<SerialHelper>(m_port);
        m_replies.clear();
    }

    void aReplyIsCompleteAtExactlyItsLength()
    {
        // clang-format off
        const std::tuple<const char *, int, QList<int>, QList<int>> rows[] = {
            {"in slices",                    4,   {1, 0, 9, 5},  {15} },
            {"no data",                      0,   {11},          {11} },
            {"count starts at 0 and wraps",  245, {100, 156},    {256}},
            {"too long: wraps and goes on",  0,   {14, 252, 1},  {267}},
        };
        // clang-format on
        for (const auto &[name, length, chunks, replySizes] : rows) {
            const InRow row(name);
            init();
            m_helper->readData(1, 0, uint8_t(length), collect());
            QByteArray all;
            for (int size : chunks) {
                const QByteArray chunk(size, char('a' + size % 26));
                all += chunk;
                m_port->deliver(chunk);
            }
            QList<int> sizes;
            for (const QByteArray &reply : qAsConst(m_replies))
                sizes.append(reply.size());
            QCOMPARE(sizes, replySizes);
            QCOMPARE(m_replies[0], all);
            QCOMPARE(m_port->operations().last(), QString("cleanUp"));
        }
    }

    void writeRepliesReachNobody()
    {
        m_helper->writeData(1, 50, "ab", collect());
        m_port->deliver(QByteArray(6, 'x'));
        QCOMPARE(m_replies.size(), 0);
        QCOMPARE(m_port->operations(), (QStringList{"write", "cleanUp"}));
        m_helper->reboot(1, collect());
        m_port->deliver(QByteArray(6, 'y'));
        QCOMPARE(m_replies, QList<QByteArray>{QByteArray(6, 'y')}); // nothing was left over
    }

    void aNewRequestInheritsThePartialReply()
    {
        m_helper->readData(1, 0, 4, collect());
        m_port->deliver("abc");
        m_helper->readData(1, 0, 0, collect());
        m_port->deliver(QByteArray(11, 'd'));
        QCOMPARE(m_replies, QList<QByteArray>{"abc" + QByteArray(11, 'd')});
    }

    void writesGoOutBeforePolls()
    {
        RecordingTarget target;
        UiScheduler scheduler(7, m_helper, target, nullptr);
        UiScheduler replaced(8, m_helper, target, nullptr);
        scheduler.addQueueRequest(48, "a");
        scheduler.addQueueRequest(3, "b");
        scheduler.addQueueRequest(48, "c");
        scheduler.startScheduler(1);
        QTRY_VERIFY(m_port->calls.size() >= 5);
        scheduler.stopScheduler();
        QCOMPARE(m_port->operations().mid(0, 5), (QStringList{"write", "write", "write", "read", "read"}));
        QCOMPARE(m_port->calls[0].data + m_port->calls[1].data + m_port->calls[2].data, QByteArray("abc"));
        QCOMPARE(m_port->calls[1].address, 3);
        QCOMPARE(m_port->calls[3].id, 7);
        QCOMPARE(m_port->calls[3].length, 118);
        const int calls = m_port->calls.size();
        scheduler.addQueueRequest(48, "d"); // waits for the timer
        QCoreApplication::processEvents();
        QCOMPARE(m_port->calls.size(), calls);
    }

    void aReplyIsCutIntoRegisters()
    {
        RecordingTarget target;
        UiScheduler scheduler(1, m_helper, target, nullptr);
        scheduler.startScheduler(1);
        QTRY_VERIFY(!m_port->calls.isEmpty());
        QByteArray reply = QByteArray(8, '\0') + '\x82';
        for (int i = 0; i < 120; ++i)
            reply.append(char(0x80 + i));
        m_port->deliver(reply);
        QCOMPARE(target.handled.value(0), qint32(0x83828180));
        QCOMPARE(target.handled.value(112), qint32(0xF3F2F1F0));
        QCOMPARE(target.handled.size(), int(target.bindings.size()));
        QCOMPARE(qint32(target.shown.value(112)), target.handled.value(112));
        QCOMPARE(target.errors, QList<int>{-126});
    }

    void aReplyThatComesTooLateReachesNothing()
    {
        using Act = void (*)(std::unique_ptr<UiScheduler> &);
        const Act acts[] = {[](auto &scheduler) { scheduler.reset(); },
                            [](auto &scheduler) { scheduler->stopScheduler(); },
                            [](auto &scheduler) { scheduler->addQueueRequest(48, "a"); }};
        for (const Act act : acts) {
            init();
            RecordingTarget target;
            auto scheduler = std::make_unique<UiScheduler>(1, m_helper, target, nullptr);
            scheduler->startScheduler(1);
            QTRY_VERIFY(!m_port->calls.isEmpty());
            act(scheduler);
            m_port->deliver(QByteArray(129, 'x'));
            QCOMPARE(target.shown.size(), 0);
        }
    }
};

ZELVAR_TEST_MAIN(TestLink)
#include "tst_link.moc"
