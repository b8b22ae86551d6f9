#include "launcher/hostmessages.h"

#include "base/posix/unicode.h"

#include <algorithm>
#include <vector>

namespace zel::launcher {
namespace {

class Input final : public HostInputData
{
public:
    explicit Input(const std::u16string &text) : m_text(text) { }
    void reserved0() override { }
    void reserved1() override { }
    const char16_t *text() override { return m_text.c_str(); }

private:
    const std::u16string &m_text;
};

class Output final : public HostOutputData
{
public:
    void setSize(std::size_t bytes) override
    {
        m_answered = true;
        m_units.assign((bytes + sizeof(char16_t) - 1) / sizeof(char16_t), u'\0');
    }
    void reserved1() override { }
    void *buffer() override { return m_units.empty() ? nullptr : m_units.data(); }

    std::optional<std::u16string> text() const
    {
        if (!m_answered)
            return std::nullopt;
        return std::u16string{m_units.begin(), std::find(m_units.begin(), m_units.end(), u'\0')};
    }

private:
    std::vector<char16_t> m_units;
    bool m_answered = false;
};

} // namespace

void HostMessages::registerHandler(const wchar_t *channel, void *context, HostCallback callback)
{
    if (channel == nullptr)
        return;
    const std::lock_guard lock(m_mutex);
    if (callback != nullptr)
        m_handlers[channel] = {context, callback};
    else
        m_handlers.erase(channel);
    if (m_changed)
        m_changed();
}

std::optional<std::u16string> HostMessages::deliver(const Message &message)
{
    const std::wstring channel = posix::toWide(posix::fromUtf16(message.channel));
    const std::lock_guard lock(m_mutex);
    const auto found = m_handlers.find(channel);
    if (found == m_handlers.end())
        return std::nullopt;
    const Handler handler = found->second; // the call may remove it
    Input input(message.text);
    Output output;
    handler.callback(handler.context, channel.c_str(), nullptr, &input, &output);
    return output.text();
}

void HostMessages::onRegistration(std::function<void()> changed)
{
    const std::lock_guard lock(m_mutex);
    m_changed = std::move(changed);
}

} // namespace zel::launcher
