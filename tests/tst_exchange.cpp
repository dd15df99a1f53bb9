// One exchange, without port and clock: what goes out, how long it is waited, and which packet counts.

#include "serialport/exchange.h"
#include "tests/support/testenvironment.h"

using namespace wire;

namespace {
using Operation = BusRequest::Operation;
using Progress = Exchange::Progress;

constexpr quint8 ServoId = 3;

BusRequest readOf(int length)
{
    return {Operation::Read, ServoId, 0, quint8(length), {}};
}

} // namespace

class TestExchange : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void howLongItIsWaited()
    {
        // 10 bits a byte; 508 µs to acknowledge, 2 × 16 ms of the adapter and 2 ms beside what bytes need.
        constexpr int Slack = 508 + 32000 + 2000;
        const BusRequest write{Operation::Write, ServoId, 50, 0, "a"};
        const BusRequest reboot{Operation::Reboot, ServoId, 0, 0, {}};
        const BusRequest reset{Operation::FactoryReset, ServoId, 0, 0, {}};
        const auto unknown = std::nullopt;
        // clang-format off
        const std::tuple<const char *, BusRequest, std::optional<Framing>, int, QList<int>> rows[] = {
            {"2.0 read, stuffed at worst", readOf(118), Framing::Protocol2, 1000000, {(14 + 129 + 39) * 10 + Slack}},
            {"slowest rate",               readOf(118), Framing::Protocol2, 9600,    {(14 + 129 + 39) * 10 * 10000 / 96 + Slack}},
            {"1.0 read",                   readOf(50),  Framing::Protocol1, 1000000, {(8 + 56) * 10 + Slack}},
            {"window, then 1.0",           readOf(50),  unknown,            1000000, {(14 + 61) * 10 + 2000, (8 + 56) * 10 + Slack}},
            {"write, never guessed",       write,       unknown,            1000000, {(13 + 11) * 10 + Slack}},
            {"reboot, in all",             reboot,      unknown,            1000000, {300000}},
            {"reset, in all",              reset,       unknown,            1000000, {(11 + 11) * 10 + Slack, 300000 - (11 + 11) * 10 - Slack}},
        };
        // clang-format on
        for (const auto &[name, request, known, baudRate, waits] : rows) {
            const InRow row(name);
            Exchange exchange(request, Framing::Protocol2, known, baudRate);
            QList<int> waited{int(exchange.begin().patience.count())};
            while (const auto next = exchange.timeOut())
                waited.append(int(next->patience.count()));
            QCOMPARE(waited, waits);
        }
    }

    void anAnswerThatHasBegunIsWaitedForOnce()
    {
        Exchange exchange(readOf(2), Framing::Protocol2, std::nullopt, 1000000);
        const QByteArray answer = protocol2::encodeStatus(ServoId, 0, "ab");
        exchange.begin();
        QCOMPARE(exchange.take(answer.left(5)), Progress::Waiting);
        QCOMPARE(exchange.timeOut()->packet, QByteArray());
        QVERIFY(exchange.timeOut()->packet.startsWith("\xFF\xFF\x03"));
        QCOMPARE(exchange.take(answer.mid(5)), Progress::Answered); // counts still, though 1.0 was tried
        QCOMPARE(exchange.answer()->parameters, QByteArray("ab"));
    }

    void echoesAreNoAnswers()
    {
        // The echo of a read of two bytes looks like an answer to it, in 1.0.
        Exchange exchange1(readOf(2), Framing::Protocol2, Framing::Protocol1, 1000000);
        const QByteArray echo = exchange1.begin().packet;
        QCOMPARE(exchange1.take(echo), Progress::Waiting);
        QCOMPARE(exchange1.take(echo), Progress::Answered); // nothing is echoed twice

        Exchange exchange2(readOf(2), Framing::Protocol2, Framing::Protocol2, 1000000);
        const QByteArray packet = exchange2.begin().packet;
        QCOMPARE(exchange2.take(packet + packet), Progress::Waiting);
        QCOMPARE(exchange2.take(protocol2::encodeStatus(ServoId, 0, "ab")), Progress::Answered);
    }
};

ZELVAR_TEST_MAIN(TestExchange)
#include "tst_exchange.moc"
