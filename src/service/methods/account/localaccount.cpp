#include "service/methods/account/localaccount.h"

#include <QDir>
#include <QFileInfo>

#include <pwd.h>
#include <unistd.h>
#include <vector>

namespace zel::service {
namespace {

constexpr size_t UsualEntry = 1024;
constexpr size_t LargestEntry = 1 << 20;

// The first field of the comment is the name; "&" in it stands for the login name, capitalised.
QString nameFromComment(const char *comment, const QString &loginName)
{
    const QString name =
        QString::fromLocal8Bit(comment ? comment : "").section(QLatin1Char(','), 0, 0).trimmed();
    QString capitalised = loginName;
    if (!capitalised.isEmpty())
        capitalised[0] = capitalised[0].toUpper();
    return QString(name).replace(QLatin1Char('&'), capitalised);
}

void fillFromSystem(LocalAccount &account)
{
    passwd entry = {};
    passwd *found = nullptr;
    std::vector<char> buffer(UsualEntry);
    while (::getpwuid_r(::getuid(), &entry, buffer.data(), buffer.size(), &found) == ERANGE
        && buffer.size() < LargestEntry)
        buffer.resize(buffer.size() * 2);
    if (!found)
        return;
    account.loginName = QString::fromLocal8Bit(entry.pw_name);
    account.fullName = nameFromComment(entry.pw_gecos, account.loginName);
}

} // namespace

LocalAccount LocalAccount::ofThisUser()
{
    LocalAccount account;
    const QString number = QString::number(::getuid());
    account.userId = QLatin1String("local-") + number;
    account.home = QDir::homePath();
    fillFromSystem(account);
    if (account.loginName.isEmpty())
        account.loginName = qEnvironmentVariable("USER", number);
    if (account.fullName.isEmpty())
        account.fullName = account.loginName;
    return account;
}

QString LocalAccount::picture() const
{
    for (const QString &path :
        {QString(home + QLatin1String("/.face")), QString(home + QLatin1String("/.face.icon")),
            QString(QLatin1String("/var/lib/AccountsService/icons/") + loginName)}) {
        const QFileInfo file(path);
        if (file.isFile() && file.isReadable() && file.size() > 0)
            return path;
    }
    return {};
}

} // namespace zel::service
