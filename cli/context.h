#pragma once

#include "cli/failure.h"
#include "cli/options.h"
#include "cli/output.h"

#include <QJsonArray>
#include <QJsonObject>

#include <functional>
#include <memory>
#include <vector>

namespace cli {

class BusClient;

/** What a command works with, and the object that it answers with. */
class Context
{
public:
    explicit Context(Options options);
    ~Context();
    Q_DISABLE_COPY(Context)

    const Options &options() const { return m_options; }
    Output &output() { return m_output; }
    /** What is printed as an object when the command has ended. */
    QJsonObject &answer() { return m_answer; }

    /** The bus on the chosen port, opened at the chosen baud rate when it is asked for first. */
    BusClient &bus();
    /** The baud rate given, else the one that the window is set to. */
    int baudRate() const;
    /** The ids given; without one the only servo that answers, for commands that change nothing. */
    std::vector<int> servosToRead();
    /** The ids given. Throws a Failure when there is none. */
    const std::vector<int> &servosToChange() const;

    /**
     * Does @p work for each servo of @p ids, which fills in the servo's object and returns its status; one that fails
     * does not end the others. @return the highest status.
     */
    ExitStatus forEach(const std::vector<int> &ids, const std::function<ExitStatus(int id, QJsonObject &)> &work);

private:
    const Options m_options;
    Output m_output;
    QJsonObject m_answer;
    std::unique_ptr<BusClient> m_bus;
};

} // namespace cli
