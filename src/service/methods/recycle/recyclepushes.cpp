#include "service/methods/recycle/recyclepushes.h"

#include "notify_types.h"
#include "service/dispatch/pushes.h"

namespace zel::service {
namespace {

// The bin is read after the change, so that the number told is right.
void tell(const DriveContext &context, vela::NotifyRecycleBinArg push, const QStringList &added)
{
    push.groupId = OwnGroup;
    context.quick.run([](CloudDrive &drive) { return drive.listTrash(); },
        [&context, push, added](const DriveResult<QVector<DriveTrashItem>> &items) mutable {
            if (!items)
                return;
            push.total = items->size();
            if (push.action == int(RecycleAction::Emptied) && push.total > 0)
                push.action = int(RecycleAction::Destroyed); // some are left
            for (const DriveTrashItem &item : *items)
                if (added.contains(item.id))
                    push.items.push_back(recycleItem(item, context.identity()));
            context.pushes.push("notifyRecycleBin", push);
        });
}

} // namespace

void tellRecycled(const DriveContext &context, const QStringList &recycleIds)
{
    if (recycleIds.isEmpty())
        return;
    vela::NotifyRecycleBinArg push;
    push.action = int(RecycleAction::Added);
    tell(context, push, recycleIds);
}

void tellGone(const DriveContext &context, RecycleAction action, const QStringList &recycleIds)
{
    if (recycleIds.isEmpty() && action != RecycleAction::Emptied)
        return;
    vela::NotifyRecycleBinArg push;
    push.action = int(action);
    if (action != RecycleAction::Emptied)
        push.removedIds = strings(recycleIds);
    tell(context, push, {});
}

} // namespace zel::service
