#include "support/serviceprocess.h"
#include "support/wireclient.h"

#include "drive_types.h"
#include "recycle_types.h"
#include "transfer_types.h"

#include <array>
#include <cstdio>
#include <random>

/// stress [--seed N] [--rounds N]: four clients do mixed work in one drive at the same time, with the real
/// service, which is killed or ended and started again in between. Each answer must be the expected one; in
/// the end every id that was acknowledged leads to its item, and the index says what is on the disk.
using namespace zel::vela;

namespace {

constexpr int Clients = 4;
constexpr int StepsOfClient = 8; // in one round, all under way at once
constexpr int RoundsOfService = 12;

struct Item
{
    enum class State { Alive, Trashed, Gone };

    std::string id;
    std::string name;
    std::string parent;
    std::string recycleId;
    bool isFolder = false;
    bool isBusy = false;
    State state = State::Alive;
};

/// What waits for its answer: takes it, and says whether it is as it has to be.
struct Step
{
    int client = 0;
    std::string what;
    std::vector<int> items;
    std::function<bool(bool lost)> settle; ///< `lost`: the service was killed before it answered
};

class Stress
{
public:
    explicit Stress(unsigned seed) : m_random(seed) { }

    bool run(int rounds)
    {
        m_drive = m_service.home() + "/ZEL Cloud/"_s;
        m_source = m_service.home() + "/source.txt"_s;
        fillOutside(300);
        write(m_source, QByteArray(20000, 's'));
        if (!begin())
            return complain("the service does not start");
        for (int round = 1; round <= rounds && !m_failed; ++round)
            doRound(round);
        return !m_failed && compareAll();
    }

private:
    static void write(const QString &path, const QByteArray &bytes)
    {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        file.open(QIODevice::WriteOnly);
        file.write(bytes);
    }
    void fillOutside(int count)
    {
        for (int i = 0; i < count; ++i)
            write(m_drive + "outside %1"_s.arg(++m_outside), "o");
    }
    bool complain(const std::string &why)
    {
        m_failed = true;
        std::fprintf(stderr, "%s\n", why.c_str());
        return false;
    }
    bool begin()
    {
        if (!m_service.start())
            return false;
        for (auto &client : m_clients) {
            client = std::make_unique<WireClient>(m_service.socketPath());
            if (!client->isOpen() || !client->greet())
                return false;
        }
        return true;
    }
    int dice(size_t sides) { return int(m_random() % sides); }
    std::string newName() { return "n" + std::to_string(++m_names) + ".txt"; }

    void doRound(int round)
    {
        for (int i = 0; i < Clients * StepsOfClient; ++i)
            addStep(i % Clients);
        fillOutside(2);
        const bool ends = round % RoundsOfService == 0;
        if (ends)
            m_peak = std::max(m_peak, m_service.peakMemory());
        if (ends)
            round % (2 * RoundsOfService) ? m_service.kill() : m_service.terminate();
        for (Step &step : m_steps) {
            if (!step.settle(ends) && !m_failed)
                complain("round " + std::to_string(round) + ": " + step.what + ": "
                    + m_clients[size_t(step.client)]->error().toStdString());
            for (const int item : step.items)
                m_items[size_t(item)].isBusy = false;
        }
        m_steps.clear();
        if (ends && !begin())
            complain("the service does not start again");
        for (size_t i = 0; ends && i < m_unsure.size(); ++i)
            lookAgain(m_items[m_unsure[i]]);
        if (ends)
            m_unsure.clear();
    }

    // What a killed service had done of the steps that it did not answer.
    void lookAgain(Item &item)
    {
        GetInfoArg request;
        request.item.id = item.id;
        const auto found = m_clients[0]->call<GetInfoResult>("getInfo", request);
        item.state = found && found->state == 0 ? Item::State::Alive : Item::State::Gone;
        if (item.state == Item::State::Gone) // in the bin or not, nobody was told
            return;
        item.name = found->item.name;
        item.parent = found->item.parentId;
    }

    template <class Result, class Request>
    void ask(int client, const char *method, const Request &request, std::vector<int> items,
        std::function<void(const Result &)> take)
    {
        const int32_t number = m_clients[size_t(client)]->send(method, request);
        for (const int item : items)
            m_items[size_t(item)].isBusy = true;
        m_steps.push_back({client, method, items, [this, client, number, items, take](bool lost) {
                               const auto answer =
                                   m_clients[size_t(client)]->template answerTo<Result>(number);
                               if (answer && answer->state == 0)
                                   take(*answer);
                               else if (lost)
                                   m_unsure.insert(m_unsure.end(), items.begin(), items.end());
                               else if (answer)
                                   std::fprintf(stderr, "%s\n", answer->errorInfo.errString.c_str());
                               return lost || (answer && answer->state == 0);
                           }});
    }
    template <class Result> auto added(bool isFolder = false)
    {
        return [this, isFolder](const Result &result) {
            const CloudItem &item = result.item;
            m_items.push_back({item.id, item.name, item.parentId, {}, isFolder});
        };
    }
    /// One that nobody works on, and no folder: those only take things in.
    int pick(Item::State state = Item::State::Alive)
    {
        for (int tries = 0; tries < 30 && !m_items.empty(); ++tries) {
            const int at = dice(m_items.size());
            const Item &item = m_items[size_t(at)];
            if (!item.isBusy && !item.isFolder && item.state == state)
                return at;
        }
        return -1;
    }
    std::string folder()
    {
        for (int tries = 0; tries < 10 && !m_items.empty(); ++tries) {
            const Item &item = m_items[size_t(dice(m_items.size()))];
            if (item.isFolder)
                return item.id;
        }
        return "root";
    }

    void addStep(int client)
    {
        switch (const int kind = dice(12)) {
        case 0: {
            const auto request =
                filled(&CreateFolderArg::parentId, folder(), &CreateFolderArg::name, newName());
            return ask<CreateFolderResult>(
                client, "createFolder", request, {}, added<CreateFolderResult>(true));
        }
        case 1:
        case 2:
        case 3: {
            const auto request = filled(&CreateFileArg::parentId, folder(), &CreateFileArg::name, newName(),
                &CreateFileArg::localPath, kind == 1 ? "" : m_source.toStdString());
            return ask<CreateFileResult>(client, "createFile", request, {}, added<CreateFileResult>());
        }
        case 4:
        case 5: {
            const auto request =
                filled(&UploadFileArg::parentId, folder(), &UploadFileArg::newName, newName(),
                    &UploadFileArg::filePath, m_source.toStdString(), &UploadFileArg::waitUntilDone, true);
            return ask<UploadFileResult>(client, "uploadFile", request, {}, added<UploadFileResult>());
        }
        case 6: {
            const auto request = filled(&GetInfoListArg::parentId, folder());
            return ask<GetInfoListResult>(
                client, "getInfoList", request, {}, [](const GetInfoListResult &) {});
        }
        case 7: {
            const int at = pick(Item::State::Trashed);
            return at < 0 ? addStep(client) : recover(client, at);
        }
        default: {
            const int at = pick();
            return at < 0 ? addStep(client) : change(client, at, kind);
        }
        }
    }
    void recover(int client, int at)
    {
        RecoverRecyclesArg request;
        request.recycleIds = {m_items[size_t(at)].recycleId};
        request.remakeParents = true;
        ask<RecoverRecyclesResult>(
            client, "recoverRecycles", request, {at}, [this, at](const RecoverRecyclesResult &result) {
                Item &item = m_items[size_t(at)];
                if (result.items.size() != 1 || result.items[0].id != item.id)
                    return void(complain("recovered with another id"));
                item.state = Item::State::Alive;
                item.name = result.items[0].name;
                item.parent = result.items[0].parentId;
            });
    }
    void change(int client, int at, int kind)
    {
        const auto item = filled(&CloudItemId::id, m_items[size_t(at)].id);
        if (kind == 8) { // a move and a new name at once, by two clients and on two threads of the service
            CloudItemsMoveToArg move;
            move.items = {item};
            move.targetParentId = folder();
            ask<CloudItemsMoveToResult>(client, "cloudItemsMoveTo", move, {at},
                [this, at, to = move.targetParentId](const CloudItemsMoveToResult &result) {
                    m_items[size_t(at)].parent = to;
                    if (!result.failedItems.empty())
                        complain("move: " + result.failedItems.begin()->second.errString);
                });
            rename((client + 1) % Clients, at);
        } else if (kind == 9) {
            rename(client, at);
        } else if (kind == 10) {
            const auto request = filled(
                &CopyArg::item, item, &CopyArg::targetParentId, folder(), &CopyArg::newName, newName());
            ask<CopyResult>(client, "copy", request, {at}, added<CopyResult>());
        } else {
            const auto request = filled(&RemoveArg::item, item, &RemoveArg::permanent, dice(4) == 0);
            ask<RemoveResult>(client, "remove", request, {at}, [this, at](const RemoveResult &result) {
                Item &gone = m_items[size_t(at)];
                gone.state = result.recycleId.empty() ? Item::State::Gone : Item::State::Trashed;
                gone.recycleId = result.recycleId;
            });
        }
    }
    void rename(int client, int at)
    {
        RenameArg request;
        request.item.id = m_items[size_t(at)].id;
        request.newName = newName();
        ask<RenameResult>(client, "rename", request, {at},
            [this, at, name = request.newName](const RenameResult &) { m_items[size_t(at)].name = name; });
    }

    /// What the index lists below a folder, by paths, and the ids there.
    void list(const std::string &id, const QString &path, std::set<QString> &paths)
    {
        const auto request = filled(&GetInfoListArg::parentId, id, &GetInfoListArg::showHidden, true,
            &GetInfoListArg::count, 1000000);
        const auto listed = m_clients[0]->call<GetInfoListResult>("getInfoList", request);
        if (!listed || listed->state != 0)
            return void(complain("a folder cannot be listed"));
        for (const CloudItem &item : listed->items) {
            const QString below = path + QString::fromStdString(item.name);
            paths.insert(below);
            m_listed[item.id] = {item.name, item.parentId};
            if (item.type == "folder")
                list(item.id, below + QLatin1Char('/'), paths);
        }
    }
    bool transfersRest()
    {
        const auto answer =
            m_clients[0]->call<TransferInfoListResult>("transferInfoList", TransferInfoListArg());
        return answer && answer->runningCount == 0;
    }
    bool compareAll()
    {
        if (!QTest::qWaitFor([this] { return transfersRest(); }, 30000))
            complain("the transfers do not end");
        std::set<QString> listed;
        list("root", {}, listed);
        std::set<QString> found;
        QDirIterator disk(
            m_drive, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
        while (disk.hasNext()) {
            const QString path = QDir(m_drive).relativeFilePath(disk.next());
            if (!path.startsWith(".zel-trash"_s))
                found.insert(path);
        }
        if (listed != found)
            complain("the index lists " + std::to_string(listed.size()) + " items, the disk holds "
                + std::to_string(found.size()));
        int alive = 0;
        for (const Item &item : m_items) {
            const auto at = m_listed.find(item.id);
            const bool right = at != m_listed.end() && at->second == std::pair(item.name, item.parent);
            if (item.state == Item::State::Alive && !right)
                complain("item " + item.id + " should be " + item.parent + "/" + item.name + ", is "
                    + (at == m_listed.end() ? "lost" : at->second.second + "/" + at->second.first));
            if (item.state != Item::State::Alive && at != m_listed.end())
                complain("item " + item.id + " is back");
            alive += item.state == Item::State::Alive;
        }
        std::printf(
            "%zu items were made, %d are there, %zu on the disk\n", m_items.size(), alive, found.size());
        std::printf("the service had %d KB at most\n", std::max(m_peak, m_service.peakMemory()));
        return !m_failed;
    }

    std::mt19937 m_random;
    ServiceProcess m_service;
    QString m_drive;
    QString m_source;
    std::array<std::unique_ptr<WireClient>, Clients> m_clients;
    std::vector<Item> m_items;
    std::vector<Step> m_steps;
    std::vector<size_t> m_unsure;
    std::map<std::string, std::pair<std::string, std::string>> m_listed; ///< name and parent by id
    int m_peak = 0; ///< of the services that have ended, in KB
    int m_names = 0;
    int m_outside = 0;
    bool m_failed = false;
};

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QCommandLineOption seedOption("seed"_s, {}, "N"_s);
    const QCommandLineOption roundsOption("rounds"_s, {}, "N"_s, "60"_s);
    QCommandLineParser options;
    options.addOptions({seedOption, roundsOption});
    options.process(application);
    const unsigned seed =
        options.isSet(seedOption) ? options.value(seedOption).toUInt() : std::random_device()();
    std::printf("seed %u\n", seed);
    std::fflush(stdout);
    return Stress(seed).run(options.value(roundsOption).toInt()) ? 0 : 1;
}
