#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

namespace profile {

/** On which lines the members of a JSON text stand, by paths like "fields/id/raw". Lines count from 1. */
class MemberLines
{
public:
    /** @p text need not be valid; what is found then is as good as it is. */
    explicit MemberLines(const QByteArray &text);

    /** The line of the member @p path, or of the nearest one around it that is there. */
    int lineOf(QString path) const;
    /** The line of the first name that is there twice in its object or is written with escapes, which might hide that;
     *  0 when there is none. */
    int ambiguousLine() const { return m_ambiguousLine; }

    /** The line of the byte at @p offset of @p text. */
    static int lineAt(const QByteArray &text, int offset);

private:
    QHash<QString, int> m_lines;
    int m_ambiguousLine = 0;
};

} // namespace profile
