#include "service/methods/drive/drivecontext.h"
#include "service/methods/drive/driveevents.h"
#include "service/methods/drive/drivelookup.h"
#include "service/methods/drive/driveplace.h"
#include "service/methods/recycle/localtrash.h"
#include "service/methods/recycle/recyclepushes.h"

#include <memory>

namespace zel::service {
namespace {

using namespace vela;
using wire::ServiceError;

// A file of this machine that is no cloud item is named by its path alone.
std::string localPathOf(const RemoveArg &request)
{
    const auto path = request.extraParam.find("path");
    return request.item.id.empty() && path != request.extraParam.end() ? path->second : std::string();
}

DriveResult<RemoveResult> removeOne(const DriveJob &job, const RemoveArg &request)
{
    const auto id = namedItemId(job.drive, request.item);
    const auto away = id ? removeItem(job.drive, *id, request.permanent) : DriveResult<QString>(id.error());
    if (!away)
        return away.error();
    RemoveResult result;
    result.recycleId = away->toStdString();
    return result;
}

template <class Work>
void removeFromDrive(
    const DriveContext &context, const RemoveArg &request, Answer<RemoveResult> answer, Work work)
{
    runOn<RemoveArg, RemoveResult>(context.quick, context, std::make_shared<const RemoveArg>(request),
        std::move(answer), work, [&context](const RemoveArg &, const RemoveResult &result) {
            if (!result.recycleId.empty())
                tellRecycled(context, {text(result.recycleId)});
            context.events.check();
        });
}

void answerLocal(const trash::Result &removed, Answer<RemoveResult> &answer)
{
    if (removed.outcome != trash::Outcome::Done) {
        answer.fail(serviceError(removed.outcome), removed.logText);
        return;
    }
    RemoveResult result;
    result.recycleId = removed.trashId.toStdString();
    answer.send(result);
}

void removeLocal(const DriveContext &context, const RemoveArg &request, Answer<RemoveResult> answer)
{
    const auto shared = std::make_shared<Answer<RemoveResult>>(std::move(answer));
    context.localTrash.put(text(localPathOf(request)),
        [&context, request, shared](const LocalPlace &place, const trash::Result &removed) {
            if (place.error != ServiceError::None)
                return shared->fail(place.error, place.reason);
            if (place.inDrive.isEmpty())
                return answerLocal(removed, *shared);
            const auto byPath = [path = place.inDrive](const DriveJob &job, RemoveArg found) {
                const auto item = job.drive.resolve(path);
                if (!item)
                    return DriveResult<RemoveResult>(item.error());
                found.item = cloudItemId(*item);
                return removeOne(job, found);
            };
            removeFromDrive(context, request, std::move(*shared), byPath);
        });
}

void remove(const DriveContext &context, const RemoveArg &request, Answer<RemoveResult> answer)
{
    if (localPathOf(request).empty())
        removeFromDrive(context, request, std::move(answer), removeOne);
    else if (request.permanent)
        answer.fail(ServiceError::Denied, QStringLiteral("A file of this machine goes into the trash only."));
    else
        removeLocal(context, request, std::move(answer));
}

CloudItem localItem(const QString &path)
{
    CloudItem item;
    item.name = path.section(QLatin1Char('/'), -1).toStdString();
    item.extraParam["path"] = path.toStdString();
    return item;
}

// What the desktop's trash gave back, for the answer to a request that may name items of the drive as well.
RecoverRecyclesResult localPart(const QStringList &ids, const QVector<trash::Result> &restored)
{
    RecoverRecyclesResult result;
    for (int i = 0; i < ids.size(); ++i) {
        const trash::Result &one = restored.at(i);
        const std::string id = ids.at(i).toStdString();
        if (one.outcome == trash::Outcome::Done) {
            result.items.push_back(localItem(one.path));
            result.recoveredIds.push_back(id);
        } else {
            result.failedItems[id] = wire::errorInfo(serviceError(one.outcome), one.logText);
        }
    }
    return result;
}

DriveResult<RecoverRecyclesResult> recoverFromDrive(
    CloudDrive &drive, const Identity &identity, const std::vector<std::string> &ids)
{
    RecoverRecyclesResult result;
    for (const std::string &id : ids)
        recoverOne(drive, identity, id, result);
    return result;
}

void append(RecoverRecyclesResult &result, const RecoverRecyclesResult &more)
{
    result.items.insert(result.items.end(), more.items.begin(), more.items.end());
    result.recoveredIds.insert(result.recoveredIds.end(), more.recoveredIds.begin(), more.recoveredIds.end());
    result.failedItems.insert(more.failedItems.begin(), more.failedItems.end());
}

// The drive's part, then the answer with `local`, which is done already: a drive that is away does not make
// that undone.
void recoverWith(const DriveContext &context, const std::vector<std::string> &ids,
    const RecoverRecyclesResult &local, Answer<RecoverRecyclesResult> answer)
{
    if (ids.empty()) {
        answer.send(local);
        return;
    }
    context.quick.run([identity = context.identity(), ids](
                          CloudDrive &drive) { return recoverFromDrive(drive, identity, ids); },
        [&context, ids, local, answer = std::move(answer)](
            const DriveResult<RecoverRecyclesResult> &done) mutable {
            if (!done && local.recoveredIds.empty()) {
                answer.fail(serviceError(done.error().kind), done.error().text);
                return;
            }
            RecoverRecyclesResult result = local;
            for (const std::string &id : ids)
                if (!done)
                    result.failedItems[id] = errorInfo(done.error());
            if (done)
                append(result, *done);
            answer.send(result);
            if (!done)
                return;
            tellGone(context, RecycleAction::Recovered, texts(done->recoveredIds));
            context.events.check();
        });
}

void recover(const DriveContext &context, RecoverRecyclesArg request, Answer<RecoverRecyclesResult> answer)
{
    QStringList local;
    for (const std::string &id : request.recycleIds)
        if (LocalTrash::isTrashId(id))
            local.append(text(id));
    std::erase_if(request.recycleIds, LocalTrash::isTrashId);
    if (local.isEmpty()) {
        recoverWith(context, request.recycleIds, {}, std::move(answer));
        return;
    }
    const auto shared = std::make_shared<Answer<RecoverRecyclesResult>>(std::move(answer));
    context.localTrash.restore(
        local, [&context, request, local, shared](const QVector<trash::Result> &restored) {
            recoverWith(context, request.recycleIds, localPart(local, restored), std::move(*shared));
        });
}

} // namespace

void addRemoval(MethodTable &methods, const DriveContext &context)
{
    methods.serve<RemoveArg, RemoveResult>(
        "remove", [&context](const RemoveArg &request, Answer<RemoveResult> answer) {
            remove(context, request, std::move(answer));
        });
    methods.serve<RecoverRecyclesArg, RecoverRecyclesResult>("recoverRecycles",
        [&context](const RecoverRecyclesArg &request, Answer<RecoverRecyclesResult> answer) {
            recover(context, request, std::move(answer));
        });
}

} // namespace zel::service
