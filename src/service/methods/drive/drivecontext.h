#pragma once

#include "service/dispatch/methodtable.h"
#include "service/methods/drive/driverecords.h"
#include "service/methods/identity.h"
#include "service/transfer/drivethread.h"

#include <QDateTime>

#include <memory>

namespace zel::service {

class DriveEvents;
class LocalTrash;
class Pushes;

/// What the methods on the drive work with; all of it outlives them. Main thread.
struct DriveContext
{
    DriveThread &quick;  ///< for what takes moments
    DriveThread &bulk;   ///< the same drive, for what may take minutes
    DriveThreads &local; ///< the same drive, for what looks at files of this machine, which may not answer
    DriveEvents &events;
    LocalTrash &localTrash;
    Pushes &pushes;
    IdentitySource identity;
    std::function<void(vela::CloudItem &)> addTransferState; ///< fills in the transfer that runs
};

/// What a job on the drive's thread knows beside its request.
struct DriveJob
{
    CloudDrive &drive;
    Identity identity;
    DriveProgress progress; ///< false once the service ends
    qint64 asked = 0;       ///< ms since epoch, UTC: when the request came
};

/// Answers a request with `work`, a function (const DriveJob &, const Request &) -> DriveResult<Result> that
/// runs on the drive's thread. `complete` may add to the answer here. After it was sent `after` gets the
/// request and the answer here; neither is called when there was an error.
template <class Request, class Result, class Thread, class Work, class After>
void runOn(
    Thread &thread, const DriveContext &context, std::shared_ptr<const Request> request,
    Answer<Result> answer, Work work, After after, std::function<void(Result &)> complete = [](Result &) {})
{
    const auto job = [&thread, work, request, identity = context.identity(),
                         asked = QDateTime::currentMSecsSinceEpoch()](
                         CloudDrive &drive) -> DriveResult<Result> {
        const auto goOn = [&thread](qint64, qint64) { return thread.goingOn(); };
        return work(DriveJob{drive, identity, goOn, asked}, *request);
    };
    thread.run(
        job, [after, complete, request, answer = std::move(answer)](DriveResult<Result> result) mutable {
            if (!result) {
                answer.fail(serviceError(result.error().kind), result.error().text);
                return;
            }
            complete(*result);
            answer.send(*result);
            after(*request, *result);
        });
}

/// Serves `method` so.
template <class Request, class Result, class Thread, class Work, class After>
void serveOn(
    Thread &thread, const DriveContext &context, MethodTable &methods, std::string_view method, Work work,
    After after, std::function<void(Result &)> complete = [](Result &) {})
{
    methods.serveKeeping<Request, Result>(method,
        [&thread, &context, work, after, complete](
            std::shared_ptr<const Request> request, Answer<Result> answer) {
            runOn<Request, Result>(
                thread, context, std::move(request), std::move(answer), work, after, complete);
        });
}

template <class Request, class Result, class Thread, class Work>
void serveOn(
    Thread &thread, const DriveContext &context, MethodTable &methods, std::string_view method, Work work)
{
    serveOn<Request, Result>(thread, context, methods, method, work, [](const Request &, const Result &) {});
}

/// Looking and asking: lists, items, paths, counts, search, thumbnails. `context` outlives the table.
void addDriveQueries(MethodTable &methods, const DriveContext &context);
/// Looking for names.
void addDriveSearch(MethodTable &methods, const DriveContext &context);
/// Pictures that the desktop has made already.
void addThumbnails(MethodTable &methods, const DriveContext &context);
/// Making, renaming, moving and copying items.
void addDriveEdits(MethodTable &methods, const DriveContext &context);
/// The same for many items at once.
void addDriveBatches(MethodTable &methods, const DriveContext &context);
/// Removing single items, of the drive and of this machine.
void addRemoval(MethodTable &methods, const DriveContext &context);
void addRecycleMethods(MethodTable &methods, const DriveContext &context);

} // namespace zel::service
