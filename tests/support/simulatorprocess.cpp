#include "tests/support/simulatorprocess.h"

SimulatorProcess::SimulatorProcess(const QStringList &arguments)
{
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(program(), arguments, QIODevice::ReadOnly);
    while (!m_process.canReadLine()) {
        if (!m_process.waitForReadyRead())
            return;
    }
    m_readyLine = QString::fromLocal8Bit(m_process.readLine()).trimmed();
}

SimulatorProcess::~SimulatorProcess()
{
    m_process.terminate();
    m_process.waitForFinished();
}

QString SimulatorProcess::program()
{
    return QStringLiteral(ZELVAR_SIMULATOR);
}

void SimulatorProcess::kill()
{
    m_process.kill();
    m_process.waitForFinished();
}
