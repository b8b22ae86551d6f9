#pragma once

#include "service/tables/messagetable.h"
#include "service/tables/radartable.h"
#include "service/tables/servicecommand.h"
#include "service/tables/switchtable.h"

#include <QJsonObject>

namespace zel::service {

/// A command that the service pushes. Its values are texts.
struct Push
{
    enum class Audience { Asker, Everyone };

    QString command;
    QJsonObject values;
    Audience audience = Audience::Asker;
};

struct CommandOutcome
{
    bool understood = false;
    bool done = false;    ///< false for a statement that was refused or failed; the reply says so too
    QVector<Push> pushes; ///< to be sent in this order
};

/// Runs the command lines that clients send to the service, on its tables. Thread of the tables' connection;
/// one line takes as long as its statement.
///
/// - A statement is answered with one push to its asker: "GetRadarMsg" for the radar; for messages the task's
/// guid
///   where that is a command's name, else "GetStoredMsg". "guid" echoes the task, "commandline" holds the
///   joined rows (cloud/wire/rowcodec.h), or "success" or "failed" where there are none to give; "state" is
///   "success" or "failed" in every reply, so that a row cannot be taken for an outcome.
/// - Radar files that a statement removed are told to everyone: "RadarFileDelete", "commandline" with one row
/// a path.
/// - A radar switch tells everyone "<source>RadarSettingChange" with "setting" "true" or "false".
/// - A backup switch tells everyone "GetBackupResult" with "BackupType" (the source), "setting", and
/// "commandline"
///   "success".
/// - A recorded link document tells everyone "NewMsgArrive".
class CommandProcessor
{
public:
    CommandProcessor(RadarTable &radar, MessageTable &messages, SwitchTable &switches)
        : m_radar(radar), m_messages(messages), m_switches(switches)
    {
    }

    CommandOutcome process(const QString &line);
    CommandOutcome process(const ServiceCommand &command);

private:
    CommandOutcome run(const TableCommand &command);
    CommandOutcome run(const WatchCommand &command);
    CommandOutcome run(const BackupCommand &command);
    CommandOutcome run(const ClearTrayCommand &command);
    CommandOutcome run(const LinkDocumentCommand &command);
    std::optional<TableResult> runStatement(const TableCommand &command);

    RadarTable &m_radar;
    MessageTable &m_messages;
    SwitchTable &m_switches;
};

} // namespace zel::service
