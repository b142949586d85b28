// SPDX-License-Identifier: MIT
#include "NamedPaths.h"

#include <QMimeData>

namespace desktop {
namespace {

/// Adds the path that a line stands for: a URI, in which each byte may be escaped, or a plain path.
void AddPath(std::vector<std::string>& paths, const QByteArray& line)
{
    QByteArray path = line;
    if (line.startsWith("file://")) {
        const qsizetype nPath = line.indexOf('/', 7); // may follow a host name
        path = nPath < 0 ? QByteArray() : QByteArray::fromPercentEncoding(line.sliced(nPath));
    }
    if (path.startsWith('/') && !path.contains('\0')) {
        paths.push_back(path.toStdString());
    }
}

/// The first non-empty line, including leading and trailing blanks.
QByteArray FirstLine(const QByteArray& text)
{
    for (const QByteArray& line : text.split('\n')) {
        if (!line.trimmed().isEmpty()) {
            return line;
        }
    }
    return {};
}

} // namespace

std::vector<std::string> NamedPaths(const QMimeData& data)
{
    std::vector<std::string> paths;
    AddPath(paths, FirstLine(data.data(QStringLiteral("text/uri-list"))).trimmed());
    // Blanks at the ends may belong to the name, but usually were copied by accident, like quotes.
    const QByteArray line = FirstLine(data.text().toUtf8());
    const QByteArray trimmed = line.trimmed();
    AddPath(paths, line);
    AddPath(paths, trimmed);
    if (trimmed.size() > 2 && trimmed.front() == trimmed.back() && QByteArray("\"'").contains(trimmed[0])) {
        AddPath(paths, trimmed.sliced(1, trimmed.size() - 2));
    }
    return paths;
}

} // namespace desktop
