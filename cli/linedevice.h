#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QString>

#include <functional>
#include <utility>

namespace cli {

/** A device whose writes, each a line, go to somebody else behind something of their own. */
class LineDevice final : public QIODevice
{
public:
    /** Writes a line. @return an empty text, or why it could not be written. */
    using Writer = std::function<QString(const QByteArray &line)>;

    explicit LineDevice(Writer writer) : m_writer(std::move(writer))
    {
        open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    }

    /** What the next lines begin with. */
    QByteArray prefix;

protected:
    qint64 readData(char *, qint64) override { return -1; }
    qint64 writeData(const char *data, qint64 size) override
    {
        const QString error = m_writer(prefix + QByteArray(data, int(size)));
        if (error.isEmpty())
            return size;
        setErrorString(error);
        return -1;
    }

private:
    Writer m_writer;
};

} // namespace cli
