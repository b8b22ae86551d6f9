#pragma once

#include "platform/cloudipc/linkfixture.h"
#include "platform/recentstore/recentfixture.h"

#include "notify_types.h"
#include "recent_types.h"

namespace zel::recent::test {

/// A recent list that a fake service tells page by page, and what it was asked and told.
struct CloudList
{
    using Head = FakeService::Head;
    using Reader = FakeService::Reader;

    explicit CloudList(FakeService &fake) : service(fake)
    {
        service.login = {{"userId", "me"}, {"loginStatus", "1"}, {"deviceId", "here"}};
        service.serve = [this](const Head &head, Reader &reader) { serve(head, reader); };
    }

    FakeService &service;
    std::vector<vela::RecentFileItem> items;   ///< newest first
    std::map<std::string, std::string> copies; ///< paths by roaming id, of files in the cloud
    int version = 1;
    size_t pageSize = 1000;
    /// Called at each page that is asked for; true: it has answered, or nobody shall.
    std::function<bool(const Head &, const vela::GetRecentFilesArg &)> onPage;
    bool answersRead = true;

    QStringList asked; ///< as "0", "2", "0/filter", "0!" (with refresh), "places 3"
    std::vector<vela::SetCloudItemReadArg> read;
    std::vector<vela::AddRoamingRecordArg> uses;

    /// "name@path" used here, else used elsewhere; `minute` as timeOf().
    vela::RecentFileItem &add(const QString &text, int minute)
    {
        vela::RecentFileItem item;
        const QStringList parts = text.split(QLatin1Char('@'));
        item.roamingId = item.name = parts.at(0).toStdString();
        item.path = parts.value(1).toStdString();
        item.curDeviceId = parts.size() > 1 ? "here" : "far";
        item.curDeviceName = "laptop";
        item.fileTime = timeOf(minute);
        const auto place = std::find_if(items.begin(), items.end(),
            [&](const vela::RecentFileItem &other) { return other.fileTime < item.fileTime; });
        ++version;
        return *items.insert(place, item);
    }
    void tellChange() { service.push("notifyRecentFileChange", vela::NotifyRecentFileChangeArg()); }
    void signIn(const std::string &user) ///< empty: signs out
    {
        service.login["userId"] = user;
        service.login["loginStatus"] = user.empty() ? "0" : "1";
        service.push(
            "notifyUserGenericInfo", filled(&vela::NotifyUserGenericInfoArg::infoKey, "loginStatus"));
    }
    void answer(const Head &head, const vela::GetRecentFilesArg &request)
    {
        auto page = filled(&vela::GetRecentFilesResult::opv, std::to_string(version));
        for (size_t i = size_t(request.offset); i < items.size() && page.items.size() < pageSize; ++i)
            page.items.push_back(items.at(i));
        page.hasMore = size_t(request.offset) + page.items.size() < items.size();
        service.reply(head, page);
    }

private:
    void serve(const Head &head, Reader &reader)
    {
        if (head.method == "getRecentFiles") {
            vela::GetRecentFilesArg request;
            reader.readRequest(request);
            const QString filter = QString::fromStdString(request.keyword);
            asked.append(QString::number(request.offset)
                + (filter.isEmpty() ? QString() : QString(QLatin1Char('/') + filter))
                + (request.refresh ? "!"_s : QString()));
            if (!onPage || !onPage(head, request))
                answer(head, request);
        } else if (head.method == "getRecentFileInfoList") {
            vela::GetRecentFileInfoListArg request;
            reader.readRequest(request);
            asked.append("places %1"_s.arg(request.roamingIds.size()));
            answerPlaces(head, request);
        } else if (head.method == "setCloudItemRead") {
            reader.readRequest(read.emplace_back());
            if (answersRead)
                answerRead(head, read.back());
        } else if (head.method == "addRoamingRecord") {
            reader.readRequest(uses.emplace_back());
            service.reply(head, vela::AddRoamingRecordResult());
        }
    }

    void answerRead(const Head &head, const vela::SetCloudItemReadArg &request)
    {
        const auto has = [](const auto &list, const auto &same) {
            return std::any_of(list.begin(), list.end(), same);
        };
        for (vela::RecentFileItem &item : items) {
            const auto isId = [&](const std::string &id) { return id == item.roamingId; };
            const auto isFile = [&](const vela::CloudItemId &file) { return file.id == item.fileId; };
            if (has(request.roamingIds, isId) || has(request.items, isFile))
                item.extraParam.erase("unread");
        }
        ++version;
        service.reply(head, vela::SetCloudItemReadResult());
    }

    void answerPlaces(const Head &head, const vela::GetRecentFileInfoListArg &request)
    {
        auto answer = filled(&vela::GetRecentFileInfoListResult::opv, std::to_string(version));
        for (const std::string &id : request.roamingIds) {
            vela::RecentFileItemInfo info;
            info.fileInfo.roamingId = id;
            info.cloudItem.cache = copies[id];
            answer.items.push_back(info);
        }
        service.reply(head, answer);
    }
};

/// A store, the service that it listens to, and the link between them.
struct RoamingStore
{
    LinkFixture<KCloudSvrProxy> link;
    CloudList cloud{*link.service};
    Store store;

    explicit RoamingStore(const Home &home) : store(home) { }

    bool start()
    {
        store.proxy.setCloudService(link.proxy.get());
        return store.load() && link.connectNow();
    }
    RecentFileInfo record(const QString &id) const
    {
        for (const RecentFileInfo &record : store.proxy.records()) {
            if (record.id == id)
                return record;
        }
        return {};
    }
    /// Whether the store ever told of such a record.
    bool wasShown(const QString &name) const
    {
        for (const QList<QVariant> &call : store.added) {
            for (const RecentFileInfo &record : call.first().value<RecordInfoList>()) {
                if (record.displayText == name)
                    return true;
            }
        }
        return false;
    }
};

} // namespace zel::recent::test
