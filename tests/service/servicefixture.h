#pragma once

#include "service/cloudservice.h"
#include "support/wireclient.h"

/// The whole service in the test's own thread, with a database of its own.
class ServiceFixture
{
public:
    /// What lives beside the service and goes before it, as the program's main function makes it.
    using Areas = std::function<std::shared_ptr<void>(zel::service::CloudService &)>;

    ServiceFixture() { restart(); }
    explicit ServiceFixture(Areas areas) : m_makeAreas(std::move(areas)) { } ///< to be started by restart()

    /// As if the process had ended and been started again; `meanwhile` may change the closed database.
    void restart(const std::function<void(const QString &file)> &meanwhile = {})
    {
        using namespace std::chrono_literals;
        m_areas.reset();
        m_service.reset();
        m_instance.reset();
        if (meanwhile)
            meanwhile(databaseFile());
        m_instance = std::make_unique<zel::posix::SingleInstance>(m_folder.path().toStdString(), "cloud");
        if (m_instance->claim(zel::posix::deadlineIn(5s)) != zel::posix::SingleInstance::Claim::Owner)
            qFatal("the service cannot be started");
        m_service = std::make_unique<zel::service::CloudService>(*m_instance, databaseFile());
        if (m_makeAreas)
            m_areas = m_makeAreas(*m_service);
        m_service->start();
    }
    /// A client that has passed the handshake.
    std::unique_ptr<WireClient> client()
    {
        auto made = std::make_unique<WireClient>(m_instance->socketPath());
        if (!made->greet())
            qFatal("the service does not welcome its client");
        return made;
    }
    zel::service::CloudService &service() { return *m_service; }
    QString databaseFile() const { return m_folder.filePath("cloud.db"_s); }
    QString folder() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
    std::unique_ptr<zel::posix::SingleInstance> m_instance;
    const Areas m_makeAreas;
    std::unique_ptr<zel::service::CloudService> m_service;
    std::shared_ptr<void> m_areas;
};
