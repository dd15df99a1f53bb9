#include "app/linkreporter.h"

#include "app/boxes.h"
#include "app/linkline.h"
#include "model/families.h"
#include "session/applyproof.h"
#include "widgets/fieldtooltip.h"

#include <QLocale>
#include <QStringList>

using session::State;
using Verdict = session::ApplyReport::Verdict;

namespace {

/** The status box of the own family that has the remedy for @p flag, which other families report, too. */
QString controlOf(const model::Flag &flag)
{
    for (const model::Flag &own : model::ZelvarV1Family["hardware_error_status"].flags) {
        if (qstrcmp(own.key, flag.key) == 0)
            return QLatin1String(own.control);
    }
    return qstrcmp(flag.key, "overload_error") == 0 ? QStringLiteral("overloadStatusCheckBox") : QString();
}

} // namespace

LinkReporter::LinkReporter(QWidget &window, const QWidget &view, const session::Connection &connection,
                           const session::ApplyProof &proof, LinkLine &line)
    : m_window(window), m_connection(connection), m_line(line), m_text(view)
{
    connect(&connection, &session::Connection::stateChanged, this, &LinkReporter::onStateChanged);
    connect(&connection, &session::Connection::polled, this, &LinkReporter::onPolled);
    connect(&connection, &session::Connection::qualityChanged, this, &LinkReporter::onQualityChanged);
    connect(&proof, &session::ApplyProof::reported, this, &LinkReporter::onReported);
}

LinkReporter::~LinkReporter() = default;

void LinkReporter::onStateChanged(State state, State before)
{
    const model::ServoAddress &address = m_connection.address();
    switch (state) {
    case State::Identifying:
        if (!m_isGoingOn) {
            m_lastLoss.clear();
            m_lost.clear();
        }
        m_line.tell(m_lastLoss, m_lost);
        m_line.showServo(tr("servo %1 · %2 baud · %3").arg(address.id).arg(address.baudRate).arg(m_portName));
        return;
    case State::Unanswered:
        m_line.tell(
            tr("No answer from servo %1 at %2 baud on %3").arg(address.id).arg(address.baudRate).arg(m_portName),
            tr("It is asked again each second. Check its supply, the cable, its address and its baud rate; "
               "Search finds servos at other ones."));
        return;
    case State::Connected:
        if (before == State::Unanswered)
            m_line.tell({}); // other events are still true
        return;
    case State::PortClosed:
        m_line.tell(tr("The port was closed by the Disconnect before: disconnect and connect again"));
        return;
    case State::Disconnected:
        m_line.showServo({});
        m_line.showFault({});
        m_line.showQuality({}, {});
        if (before == State::Unanswered || before == State::PortClosed)
            m_line.tell({}); // what happened before stays, since it may be a block that was not sent
        return;
    case State::Silent:
    case State::Refusing:
    case State::Moved:
        onQualityChanged();
        return; // the status bar tells
    }
}

/** The bits of @p field that stand for errors which the servo reports now; an AX-12 does so in its answers. */
quint32 LinkReporter::reportedBits(const model::RegisterImage &image, const model::Field &field) const
{
    if (!field.isWritable() && !field.flags.isEmpty())
        return image.bits(field).value_or(0);
    return qstrcmp(field.key, "alarm_led") == 0 ? m_connection.reportedAlarms() : 0;
}

void LinkReporter::onPolled(const model::RegisterImage &image)
{
    QStringList faults;
    QStringList tips;
    for (const model::Field &field : image.family().fields) {
        const quint32 bits = reportedBits(image, field);
        for (const model::Flag &flag : field.flags) {
            if (!(bits & (1U << flag.bit)))
                continue;
            faults.append(QCoreApplication::translate("EditView", flag.label));
            tips.append(faults.last() + QLatin1String(": ") + FieldToolTip::remarkText(controlOf(flag)));
        }
    }
    m_line.showFault(faults.join(QLatin1String(", ")), tips.join(QLatin1Char('\n')));
}

void LinkReporter::onQualityChanged()
{
    const session::LinkQuality &quality = m_connection.quality();
    const session::LinkQuality::Shares shares = quality.shares();
    const QString figures = tr("%1 polls a second; of the last hundred %2 % answered at once, %3 % when asked again, "
                               "%4 % lost")
                                .arg(QLocale().toString(quality.pollsPerSecond(), 'f', 1))
                                .arg(shares.atOnce)
                                .arg(shares.repeated)
                                .arg(shares.lost);
    // A servo that does not answer at all, or elsewhere, is told in the status bar.
    const bool isTold = quality.isWeak() && m_connection.state() == State::Connected;
    m_line.showQuality(isTold ? tr("weak link") : QString(), figures);
}

void LinkReporter::onReported(const session::ApplyReport &report)
{
    switch (report.verdict) {
    case Verdict::Applied:
        m_line.tell(m_text.applied(report), m_text.fields(report.edited));
        return;
    case Verdict::Dropped:
    case Verdict::Unproved:
        tellLost(m_text.dropped(report), m_text.fields(report.edited));
        return;
    case Verdict::Elsewhere:
        return; // the status bar tells where the servo is now
    case Verdict::NotApplied:
    case Verdict::Unknown:
        tellNotApplied(report);
        return;
    }
}

void LinkReporter::tellDropped(const QStringList &controls)
{
    if (!controls.isEmpty())
        tellLost(m_text.droppedEdit(controls), m_text.captions(controls));
}

/** One connection may end with more than one loss; the tip has them all. */
void LinkReporter::tellLost(const QString &text, const QString &tip)
{
    m_lost += (m_lost.isEmpty() ? QString() : QStringLiteral("\n\n")) + text + QLatin1Char('\n') + tip;
    m_lastLoss = text;
    m_line.tell(m_lastLoss, m_lost);
}

void LinkReporter::tellNotApplied(const session::ApplyReport &report)
{
    m_line.tell(tr("not applied"));
    if (m_notApplied)
        m_notApplied->close(); // the latest one is what counts
    m_notApplied = boxes::tell(&m_window, QMessageBox::Warning, tr("Not applied"), m_text.notApplied(report));
}
