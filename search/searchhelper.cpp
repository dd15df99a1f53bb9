#include "search/searchhelper.h"

#include "link/serialhelper.h"
#include "model/families.h"
#include "serialport/servobus.h"

#include <QMutexLocker>
#include <QWaitCondition>

namespace {

/** From register 0: model number, firmware version and id, which all families have there. */
uint8_t identityLength()
{
    return static_cast<uint8_t>(model::ZelvarV1Family["id"].end());
}

QWaitCondition &probeEnded()
{
    static QWaitCondition condition;
    return condition;
}

} // namespace

bool SearchHelper::isInTime(int baudRate)
{
    BusRequest request;
    request.length = identityLength();
    return ServoBus::longestAnswer(request, baudRate) <= AnswerTime;
}

SearchHelper::SearchHelper(const QString &serialPortName) : m_serialPortName(serialPortName) {}

SearchHelper::~SearchHelper()
{
    closePort();
}

QMutex &SearchHelper::probeMutex()
{
    static QMutex mutex;
    return mutex;
}

QByteArray SearchHelper::waitForReply(QDeadlineTimer deadline)
{
    while (!m_isProbeOver) {
        if (!probeEnded().wait(&probeMutex(), deadline))
            break;
    }
    return m_replyBuffer;
}

void SearchHelper::closePort()
{
    if (!m_serialHelper)
        return;
    m_serialHelper->closeSerialPort();
    m_serialHelper.reset();
}

void SearchHelper::scanServo(int id, int baudRate)
{
    m_serialHelper = std::make_shared<SerialHelper>();
    m_openError = m_serialHelper->openSerialPort(m_serialPortName, baudRate);
    const bool isAsked =
        m_openError.isEmpty() && m_serialHelper->readData(static_cast<uint8_t>(id), 0, identityLength(),
                                                          [this](const QByteArray &reply) { endProbe(reply); });
    if (!isAsked)
        endProbe({}); // nothing will answer: no use in waiting for it
}

void SearchHelper::endProbe(const QByteArray &reply)
{
    const QMutexLocker lock(&probeMutex());
    m_replyBuffer.prepend(reply);
    m_isProbeOver = true;
    probeEnded().wakeAll();
}
