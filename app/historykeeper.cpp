#include "app/historykeeper.h"

#include "profile/restoreplan.h"
#include "session/applyproof.h"

#include <QLocale>

#include <utility>

using session::State;

namespace {

/** The part of the locale's long date format from its first to its last one of @p letters: "d MMMM". */
QString formatOf(const QLocale &locale, const QString &letters)
{
    const QString format = locale.dateFormat(QLocale::LongFormat).remove(QStringLiteral("dddd"));
    bool isQuoted = false;
    int first = -1;
    int last = -1;
    for (int at = 0; at < format.size(); ++at) {
        isQuoted ^= format[at] == QLatin1Char('\'');
        if (isQuoted || !letters.contains(format[at]))
            continue;
        first = first < 0 ? at : first;
        last = at;
    }
    return first < 0 ? format : format.mid(first, last - first + 1);
}

QString dayText(const QDate &day, const QDate &today)
{
    const QLocale locale;
    const QString letters = day.year() == today.year() ? QStringLiteral("dM") : QStringLiteral("dMy");
    return locale.toString(day, formatOf(locale, letters));
}

} // namespace

HistoryKeeper::HistoryKeeper(session::Connection &connection, session::ApplyProof &proof, profile::History &history,
                             std::function<QDateTime()> now)
    : m_connection(connection), m_history(history), m_now(std::move(now))
{
    connect(&connection, &session::Connection::stateChanged, this, &HistoryKeeper::onStateChanged);
    connect(&connection, &session::Connection::polled, this, &HistoryKeeper::onPolled);
    connect(&proof, &session::ApplyProof::read, this, &HistoryKeeper::onProofRead);
    connect(&proof, &session::ApplyProof::reported, this, &HistoryKeeper::onReported);
}

HistoryKeeper::~HistoryKeeper() = default;

QString HistoryKeeper::surprise(int count, const QDate &before, const QDate &today)
{
    const QString day = dayText(before, today);
    // English has no catalogue that would know its plural.
    return count == 1 ? tr("1 parameter differs from %1: another servo?").arg(day)
                      : tr("%n parameters differ from %1: another servo?", nullptr, count).arg(day);
}

void HistoryKeeper::onStateChanged(State state, State before)
{
    m_isUnknown |= state == State::Identifying || before == State::Silent;
}

/** Takes what the proof of an Apply has read: the connection may end before the next poll. */
void HistoryKeeper::onProofRead(const QByteArray &registers)
{
    const model::Family *family = m_connection.family();
    if (!family || m_isUnknown)
        return;
    model::RegisterImage image(family);
    image.take(0, registers, {});
    m_isKeptByProof = image.isKnown(0, family->tableSize);
    if (m_isKeptByProof)
        keep(profile::Profile::of(image, m_now()));
}

void HistoryKeeper::onReported(const session::ApplyReport &report)
{
    if (std::exchange(m_isKeptByProof, false))
        return;
    // Of what was not applied, or not proved, some may have taken.
    m_isKeepDue |= report.verdict != session::ApplyReport::Verdict::Dropped;
}

void HistoryKeeper::onPolled(const model::RegisterImage &image)
{
    if ((!m_isUnknown && !m_isKeepDue) || !image.isKnown(0, image.family().tableSize))
        return;
    const auto found = profile::Profile::of(image, m_now());
    // An Apply that gave the servo another id, say, is read after the next Connect only.
    if (m_isUnknown && !m_isKeepDue)
        compare(found);
    m_isUnknown = m_isKeepDue = false;
    keep(found);
}

void HistoryKeeper::compare(const profile::Profile &found)
{
    const auto before = m_history.last({found.model, *found.id});
    if (!before)
        return;
    const auto fields = profile::nonVolatileFields(found.family());
    const auto differences = profile::compare(found, *before, fields).differences();
    if (!differences.empty())
        Q_EMIT differs(int(differences.size()), *before);
}

void HistoryKeeper::keep(const profile::Profile &found)
{
    const profile::KeepResult result = m_history.keep(found);
    switch (result.outcome) {
    case profile::KeepResult::Outcome::Same:
        return;
    case profile::KeepResult::Outcome::Kept:
        m_isFailureTold = false;
        Q_EMIT kept({found.model, *found.id});
        return;
    case profile::KeepResult::Outcome::Failed:
        if (!std::exchange(m_isFailureTold, true))
            Q_EMIT failed(result.error);
        return;
    }
}
