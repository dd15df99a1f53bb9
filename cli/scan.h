#pragma once

#include "serialport/busrequest.h"

#include <QString>

#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <utility>
#include <vector>

namespace cli {

class BusClient;

/** Who answers somewhere on a bus. */
struct FoundServo
{
    int id = 0;
    int baudRate = 0; ///< bits per second
    wire::Framing framing = wire::Framing::Protocol2;
    std::optional<quint16> modelNumber;
    std::optional<quint8> firmware;
    bool isConflict = false; ///< several servos answer with this id, so that nobody is understood
};

/**
 * Finds the servos of a bus. Whoever speaks 2.0 is asked by one request to all, or one by one where that is faster;
 * whoever speaks 1.0, one by one. Each has no longer than the line is taken: what an adapter holds back arrives while
 * later ones are asked, and says whose it is. Where somebody was found everybody else is asked once more, since the
 * line may have lost an answer.
 */
class Scan
{
public:
    /** Told @p done of @p all steps now and then. */
    using Progress = std::function<void(int done, int all)>;

    Scan(BusClient &bus, std::vector<int> ids, std::vector<int> baudRates, Progress progress = {});

    /** May throw; what was found until then stays. A baud rate that the port refuses is passed over. */
    void run();
    /** By baud rate in the order given, then by id. */
    const std::vector<FoundServo> &found() const { return m_found; }
    /** Why baud rates were passed over, each for the user. */
    const std::vector<QString> &refusals() const { return m_refusals; }

    /** Who answers at @p baudRate. */
    static std::vector<FoundServo> everybodyAt(BusClient &bus, int baudRate);

private:
    using Microseconds = std::chrono::microseconds;
    using Address = std::pair<wire::Framing, int>;
    using Moment = std::chrono::steady_clock::time_point;

    void scanBaudRate(int baudRate);
    void scanFraming(wire::Framing framing);
    bool isFasterOneByOne() const;
    void askEverybody();
    void askEach(wire::Framing framing);
    void look(Address address);
    void readModel(FoundServo &servo);
    BusRequest request(Address address, Microseconds linger) const;
    BusResult find(Address address, Microseconds linger);
    void take(const wire::Packet &packet);
    bool isEcho(const wire::Packet &packet);
    bool isKnown(Address address) const;
    bool hasFound(wire::Framing framing) const;
    void showProgress(int asked) const;

    BusClient &m_bus;
    const std::vector<int> m_ids;
    const std::vector<int> m_baudRates;
    const Progress m_progress;
    const Microseconds m_spacing; ///< between two requests beyond the time that the line is taken
    int m_baudRate = 0;           ///< that is being scanned
    int m_stages = 0;             ///< that are through: each baud rate in each framing
    bool m_hasEcho = false;
    std::vector<FoundServo> m_found;
    std::vector<QString> m_refusals;
    std::set<Address> m_suspects; ///< who may have said what was heard and nobody understood
    std::map<int, int> m_echoes;  ///< by id, what came back of the 1.0 requests less what was sent
};

} // namespace cli
