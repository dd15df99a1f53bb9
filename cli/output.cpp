#include "cli/output.h"

#include "cli/failure.h"

#include <QJsonDocument>

#include <cerrno>
#include <cstdio>

namespace cli {

void Output::line(const QString &text)
{
    if (isJson())
        return;
    const QString error = write(text.toUtf8() + '\n');
    if (!error.isEmpty())
        throw Failure{ExitStatus::Usage, error};
}

void Output::object(const QJsonObject &object)
{
    if (!isJson())
        return;
    const QString error = write(encoded(object));
    if (!error.isEmpty())
        throw Failure{ExitStatus::Usage, error};
}

QByteArray Output::encoded(QJsonObject object)
{
    object.insert(QStringLiteral("schema"), SchemaVersion);
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

QString Output::write(const QByteArray &bytes)
{
    if (m_isClosed)
        return {};
    const auto size = std::size_t(bytes.size());
    if (std::fwrite(bytes.constData(), 1, size, stdout) == size && std::fflush(stdout) == 0)
        return {};
    const QString reason = qt_error_string(errno);
    m_isClosed = errno == EPIPE;
    return m_isClosed ? QString() : QStringLiteral("the results cannot be written: %1").arg(reason);
}

void Output::tell(const QString &text)
{
    std::fprintf(stderr, "zelvar-servo: %s\n", qPrintable(text));
}

} // namespace cli
