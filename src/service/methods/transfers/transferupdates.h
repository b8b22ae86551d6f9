#pragma once

#include "service/dispatch/reply.h"
#include "service/transfer/transferrunner.h"
#include "transfer_types.h"

#include <memory>

namespace zel::service {

/// Pauses, continues, cancels, marks and takes off tasks of the transfer list. Of many tasks each turn of the
/// loop does a part, so that nobody waits for long: a part is done as a whole or not at all, and told before
/// the next one. A failure ends the request; the parts before it stay done, and asking again does the rest.
/// What runs comes last, so that no other task begins in its place. Main thread.
class TransferUpdates final : public QObject
{
public:
    static constexpr int PartSize = 200; ///< tasks

    /// Both outlive this object.
    TransferUpdates(TransferTable &table, TransferRunner &runner) : m_table(table), m_runner(runner) { }

    /// Few tasks are answered within the call.
    void update(const QString &user, const vela::UpdateTransferInfoArg &request,
        Answer<vela::UpdateTransferInfoResult> answer);

private:
    struct Work;

    void goOn(const std::shared_ptr<Work> &work);
    wire::ServiceError doPart(Work &work, const QStringList &ids);
    wire::ServiceError change(
        const TransferTasks &tasks, const vela::UpdateTransferInfoArg &request, TransferRefusals &refused);
    wire::ServiceError takeOff(const TransferTasks &tasks, TransferRefusals &refused);
    wire::ServiceError note(
        const TransferTasks &tasks, const vela::UpdateTransferInfoArg &request, TransferRefusals &refused);
    void answer(Work &work);

    TransferTable &m_table;
    TransferRunner &m_runner;
};

} // namespace zel::service
