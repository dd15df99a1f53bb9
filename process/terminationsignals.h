#pragma once

#include <QObject>

namespace process {

/**
 * Turns SIGINT, SIGTERM and SIGHUP into a signal of the event loop, so that the process can tidy up. One per process.
 * On systems without these signals it does nothing.
 */
class TerminationSignals : public QObject
{
    Q_OBJECT

public:
    explicit TerminationSignals(QObject *parent = nullptr);
    ~TerminationSignals() override;
    Q_DISABLE_COPY(TerminationSignals)

Q_SIGNALS:
    void requested();
};

} // namespace process
