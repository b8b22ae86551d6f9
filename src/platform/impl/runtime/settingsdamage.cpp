#include "settingsstore.h"

#include <QTextCodec>

namespace zel::platform {
namespace {

bool isUtf8(const QByteArray &bytes)
{
    QTextCodec::ConverterState state;
    QTextCodec::codecForName("UTF-8")->toUnicode(bytes.constData(), bytes.size(), &state);
    return state.invalidChars == 0 && state.remainingChars == 0;
}

bool isIniLine(const QByteArray &line)
{
    if (line.isEmpty() || line.startsWith(';'))
        return true;
    if (line.startsWith('['))
        return line.endsWith(']');
    return line.indexOf('=') > 0;
}

} // namespace

// The INI reader skips what it does not understand and would then write the file without it, so a damaged
// file has to be noticed before.
QString settingsDamage(const QByteArray &bytes)
{
    if (bytes.contains('\0'))
        return QStringLiteral("it holds NUL bytes");
    if (!isUtf8(bytes))
        return QStringLiteral("it is not UTF-8");
    int number = 0;
    int begin = 0;
    while (begin < bytes.size()) {
        int end = bytes.indexOf('\n', begin);
        if (end < 0)
            end = bytes.size();
        ++number;
        if (!isIniLine(bytes.mid(begin, end - begin).trimmed()))
            return QStringLiteral("line %1 is neither a section nor a key").arg(number);
        begin = end + 1;
    }
    return {};
}

} // namespace zel::platform
