#pragma once

#include <QObject>

class QSocketNotifier;

namespace simulator {

/**
 * Notices that a client opens or closes the serial device file. Where the system does not tell, nothing is
 * ever noticed.
 */
class ClientWatch : public QObject
{
    Q_OBJECT

public:
    explicit ClientWatch(QObject *parent = nullptr);
    ~ClientWatch() override;
    Q_DISABLE_COPY(ClientWatch)

    void watch(const QString &device);
    /** Takes up what has happened so far, with a signal for it; the event loop does so too, but later. */
    void catchUp();

Q_SIGNALS:
    /** A client came. */
    void opened();
    /** A client left, and none has come since. */
    void closed();

private:
    int m_descriptor = -1;
    QSocketNotifier *m_notifier = nullptr;
};

} // namespace simulator
