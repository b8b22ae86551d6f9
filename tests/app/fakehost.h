#pragma once

#include "base/hostinterface.h"

/// A host of the box inside the test program: include it in one source file of a program that exports its
/// symbols.
class FakeHost final : public HostMessageInterface
{
public:
    static FakeHost &instance()
    {
        static FakeHost host;
        return host;
    }

    void registerHandler(const wchar_t *channel, void *context, HostCallback callback) override
    {
        channelName = channel;
        m_context = context;
        m_callback = callback;
        ++registrations;
    }
    void reserved() override { }
    bool isReady() override
    {
        ++readyQuestions;
        return ready;
    }

    /// Delivers a message as the host does; returns the bytes of the reply.
    std::vector<char> send(const std::wstring &channel, const std::u16string &text)
    {
        Input input{text};
        Output output;
        m_callback(m_context, channel.c_str(), nullptr, &input, &output);
        return output.bytes;
    }

    bool ready = true;
    int readyQuestions = 0;
    int registrations = 0;
    std::wstring channelName;

private:
    struct Input final : HostInputData
    {
        explicit Input(const std::u16string &message) : content(message) { }
        void reserved0() override { }
        void reserved1() override { }
        const char16_t *text() override { return content.c_str(); }
        std::u16string content;
    };
    struct Output final : HostOutputData
    {
        void setSize(std::size_t size) override { bytes.assign(size, '\xAA'); }
        void reserved1() override { }
        void *buffer() override { return bytes.data(); }
        std::vector<char> bytes;
    };

    void *m_context = nullptr;
    HostCallback m_callback = nullptr;
};

extern "C" __attribute__((visibility("default"))) void GetHostInterface(HostMessageInterface **out)
{
    *out = &FakeHost::instance();
}
