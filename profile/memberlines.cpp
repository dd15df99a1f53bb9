#include "profile/memberlines.h"

#include <QStringList>

#include <algorithm>
#include <cctype>

namespace profile {

namespace {

/** The offset behind the string that begins with the quote at @p begin. */
int endOfString(const QByteArray &text, int begin)
{
    int at = begin + 1;
    while (at < text.size() && text[at] != '"')
        at += text[at] == '\\' ? 2 : 1;
    return std::min(at + 1, text.size());
}

bool isName(const QByteArray &text, int behind)
{
    while (behind < text.size() && std::isspace(uchar(text[behind])))
        ++behind;
    return behind < text.size() && text[behind] == ':';
}

} // namespace

MemberLines::MemberLines(const QByteArray &text)
{
    constexpr int Deepest = 16; // far deeper than any file of ours; paths would grow without end
    QStringList around;         // paths of the objects and lists that are open
    QString last;               // path of the member read last
    int line = 1;
    for (int at = 0; at < text.size() && around.size() <= Deepest; ++at) {
        const char character = text[at];
        line += character == '\n' ? 1 : 0;
        if (character == '{' || character == '[') {
            around.append(around.isEmpty() ? QString() : last + QLatin1Char('/'));
        } else if ((character == '}' || character == ']') && !around.isEmpty()) {
            around.removeLast();
        } else if (character == '"') {
            const int end = endOfString(text, at);
            if (isName(text, end) && !around.isEmpty()) {
                const QByteArray name = text.mid(at + 1, end - at - 2);
                last = around.last() + QString::fromUtf8(name);
                if (m_ambiguousLine == 0 && (m_lines.contains(last) || name.contains('\\')))
                    m_ambiguousLine = line;
                m_lines.insert(last, line);
            }
            at = end - 1;
        }
    }
}

int MemberLines::lineOf(QString path) const
{
    while (!path.isEmpty() && !m_lines.contains(path))
        path.truncate(std::max(0, path.lastIndexOf(QLatin1Char('/'))));
    return m_lines.value(path, 1);
}

int MemberLines::lineAt(const QByteArray &text, int offset)
{
    return 1 + int(std::count(text.begin(), text.begin() + std::clamp(offset, 0, text.size()), '\n'));
}

} // namespace profile
