#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QString>

namespace cli {

/** Where results and everything else go. Results are either lines for people or objects for programs. */
class Output
{
public:
    /** Version of the objects: goes up when what stands in one changes its meaning or goes. */
    static constexpr int SchemaVersion = 1;

    enum class Form {
        Lines,
        Objects, ///< JSON, one a line
    };

    explicit Output(Form form) : m_form(form) {}

    bool isJson() const { return m_form == Form::Objects; }
    /** A line of the results; nothing is printed where objects are. */
    void line(const QString &text);
    /** An object of the results, nothing is printed where lines are. */
    void object(const QJsonObject &object);
    /** The line that @p object makes, with the version of the schema in it. */
    static QByteArray encoded(QJsonObject object);
    /** Results as they are. @return an empty text, or why they could not be written. */
    QString write(const QByteArray &bytes);
    /** A line for the user beside the results, on standard error. */
    static void tell(const QString &text);

    /** Whether whoever read the results has gone, which ends the program without being an error. */
    bool isClosed() const { return m_isClosed; }

private:
    Form m_form;
    bool m_isClosed = false;
};

} // namespace cli
