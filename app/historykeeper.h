#pragma once

#include "profile/history.h"
#include "session/applyreport.h"
#include "session/connection.h"

#include <QDateTime>
#include <QObject>

#include <functional>

namespace session {
class ApplyProof;
}

/**
 * Keeps what the connected servo has in the history, without being asked: after each Connect, after a silence, in which
 * the servo may have been exchanged, and after each Apply. Sends nothing: it takes the polls, and what proofs read. GUI
 * thread only.
 */
class HistoryKeeper : public QObject
{
    Q_OBJECT

public:
    /** All must outlive this object. @param now tells the time. */
    HistoryKeeper(session::Connection &connection, session::ApplyProof &proof, profile::History &history,
                  std::function<QDateTime()> now = QDateTime::currentDateTimeUtc);
    ~HistoryKeeper() override;

    /**
     * Something that the user has asked for, other than an Apply, has just changed the servo's parameters: what the
     * next poll brings is kept, and is no surprise, also when that poll comes after the next Connect only.
     */
    void expectChange() { m_isKeepDue = true; }

    /**
     * What the user is told of differs(): "4 parameters differ from 21 November: another servo?" @param before the day
     * of the entry, in local time; its year is left out when it is that of @p today.
     */
    static QString surprise(int count, const QDate &before, const QDate &today);

Q_SIGNALS:
    /**
     * The servo that answers has @p count parameters otherwise than the one that this id had last, which had @p before
     * at the time in it. Told before what it has is kept, once a Connect.
     */
    void differs(int count, const profile::Profile &before);
    /** The history has got a new entry. */
    void kept(const profile::ServoKey &servo);
    /** Nothing can be kept, and why. Not told again until something was kept. */
    void failed(const QString &reason);

private:
    void onStateChanged(session::State state, session::State before);
    void onProofRead(const QByteArray &registers);
    void onReported(const session::ApplyReport &report);
    void onPolled(const model::RegisterImage &image);
    void compare(const profile::Profile &found);
    void keep(const profile::Profile &found);

    session::Connection &m_connection;
    profile::History &m_history;
    std::function<QDateTime()> m_now;
    bool m_isUnknown = false;     ///< since the last keep, another servo may have come to the id
    bool m_isKeepDue = false;     ///< since the last keep, the user has changed the servo's parameters
    bool m_isKeptByProof = false; ///< of an Apply that is going to be reported
    bool m_isFailureTold = false; ///< since the last entry
};
