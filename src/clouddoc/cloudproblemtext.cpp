#include "clouddoc/cloudproblemtext.h"

#include <QCoreApplication>

namespace zel::clouddoc {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(CloudProblems)
};

QString whatFailed(CloudOperation operation, int count, const QString &name)
{
    using Operation = CloudOperation;
    const bool one = count == 1 && !name.isEmpty();
    switch (operation) {
    case Operation::CreateFolder:
        return Texts::tr("The folder could not be made.");
    case Operation::Rename:
        return one ? Texts::tr("The name of “%1” could not be changed.").arg(name)
                   : Texts::tr("The name could not be changed.");
    case Operation::Move:
        return one ? Texts::tr("“%1” could not be moved.").arg(name)
                   : Texts::tr("%Ln item(s) could not be moved.", nullptr, count);
    case Operation::Copy:
        return one ? Texts::tr("“%1” could not be copied.").arg(name)
                   : Texts::tr("%Ln item(s) could not be copied.", nullptr, count);
    case Operation::Trash:
        return one ? Texts::tr("“%1” could not be moved to the recycle bin.").arg(name)
                   : Texts::tr("%Ln item(s) could not be moved to the recycle bin.", nullptr, count);
    case Operation::UndoTrash:
        return Texts::tr("%Ln item(s) could not be brought back.", nullptr, count);
    case Operation::UndoMove:
        return Texts::tr("%Ln item(s) could not be moved back.", nullptr, count);
    case Operation::UndoCreateFolder:
        return Texts::tr("The new folder could not be removed.");
    case Operation::UndoRename:
        return Texts::tr("The old name could not be given back.");
    case Operation::Upload:
        return one ? Texts::tr("“%1” could not be uploaded.").arg(name)
                   : Texts::tr("%Ln item(s) could not be uploaded.", nullptr, count);
    case Operation::Download:
        return one ? Texts::tr("“%1” could not be downloaded.").arg(name)
                   : Texts::tr("%Ln item(s) could not be downloaded.", nullptr, count);
    case Operation::Transfer:
        return Texts::tr("The transfer could not be changed.");
    }
    return {};
}

} // namespace

QString problemText(CloudProblem problem)
{
    switch (problem) {
    case CloudProblem::None:
        return {};
    case CloudProblem::NotReached:
        return Texts::tr("The cloud service does not answer.");
    case CloudProblem::NotFound:
        return Texts::tr("It is no longer there.");
    case CloudProblem::Exists:
        return Texts::tr("The name is already taken.");
    case CloudProblem::Denied:
        return Texts::tr("You do not have permission for this.");
    case CloudProblem::InvalidName:
        return Texts::tr("The drive does not accept this name.");
    case CloudProblem::DiskFull:
        return Texts::tr("There is no space left.");
    case CloudProblem::Io:
        return Texts::tr("The file could not be read or written.");
    case CloudProblem::Offline:
        return Texts::tr("The drive cannot be reached at present.");
    case CloudProblem::Cancelled:
        return Texts::tr("It was cancelled.");
    case CloudProblem::Other:
        return Texts::tr("Something unexpected went wrong.");
    }
    return {};
}

QString failureText(CloudOperation operation, CloudProblem problem, int count, const QString &name)
{
    const QString why = problemText(problem);
    const QString what = whatFailed(operation, qMax(1, count), name);
    return why.isEmpty() ? what : QString(what + QLatin1Char(' ') + why);
}

} // namespace zel::clouddoc
