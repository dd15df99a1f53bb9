#pragma once

#include "link/uischeduler.h"

#include <QByteArray>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include <cstdint>

/** Where a servo is reached. */
struct ServoAddress
{
    int id = 0;
    int baudRate = 0; ///< bits per second

    bool operator==(const ServoAddress &other) const { return id == other.id && baudRate == other.baudRate; }
    bool operator!=(const ServoAddress &other) const { return !(*this == other); }
};

/**
 * Watches the polling of one connection: whether the servo still answers, and whether an applied block has moved it to
 * another id or baud rate. GUI thread only.
 */
class ConnectionWatch : public QObject
{
    Q_OBJECT

public:
    explicit ConnectionWatch(QObject *parent = nullptr);

    /**
     * Begins to watch @p scheduler, which polls a servo at @p address every @p pollingInterval milliseconds.
     * @param hasRegisterMap whether the servo's id and baud-rate registers are the own family's.
     */
    void start(UiScheduler &scheduler, const ServoAddress &address, int pollingInterval, bool hasRegisterMap);
    void stop();
    /** Where the connection watched was made to. */
    const ServoAddress &address() const { return m_address; }

Q_SIGNALS:
    /** No reply has come for three polling intervals and at least a second. */
    void answersMissing();
    /** Replies come (again) from the address that the connection was made to. */
    void answersBack();
    /** A block that gives the servo another id or baud rate has gone out: from now on it listens at @p address. */
    void servoMoved(const ServoAddress &address);

private:
    void onReply();
    void onWriteSent(uint8_t address, const QByteArray &data);
    ServoAddress addressAfter(uint8_t address, const QByteArray &data) const;

    QTimer m_silence;
    ServoAddress m_address;
    QPointer<UiScheduler> m_scheduler;
    bool m_isAnswering = true; ///< the last thing told is that replies come
    bool m_hasMoved = false;
    bool m_hasRegisterMap = false;
};
