#pragma once

#include <cstddef>

/// The message interface that the program which loads the box offers to it. Binary contract: the library
/// finds the objects through plain C functions, so the order of the virtual functions below is their slot
/// number and must stay; that is also why the destructors are neither virtual nor public. The host owns every
/// object.

/// Text of one message. Valid during the callback only.
class HostInputData
{
public:
    virtual void reserved0() = 0;
    virtual void reserved1() = 0;
    virtual const char16_t *text() = 0; ///< UTF-16 with a terminating zero; never null

protected:
    ~HostInputData() = default;
};

/// Where a handler puts its reply. Valid during the callback only.
class HostOutputData
{
public:
    /// A handler that never calls it takes no messages any more: the host answers nobody in its name.
    virtual void setSize(std::size_t bytes) = 0; ///< makes the buffer this large, filled with zero bytes
    virtual void reserved1() = 0;
    virtual void *buffer() = 0; ///< aligned for char16_t; null before setSize

protected:
    ~HostOutputData() = default;
};

/// Handles one message: the context given at registration, the channel's name, an unused argument, the
/// message, and the place for the reply. The host may call it on a thread of its own, never twice at once.
using HostCallback = void (*)(
    void *context, const wchar_t *channel, void *unused, HostInputData *input, HostOutputData *output);

class HostMessageInterface
{
public:
    /// From now on messages on `channel` are passed to `callback` with `context`; replaces an earlier handler
    /// of that channel. A null callback removes it (a call under way is waited for): messages then wait for
    /// the next handler, and when the library's entry function returns first, their senders start a box of
    /// their own. Any thread; the context must live until the handler is removed or the entry function has
    /// returned.
    virtual void registerHandler(const wchar_t *channel, void *context, HostCallback callback) = 0;
    virtual void reserved() = 0;
    virtual bool isReady() = 0; ///< false: this host takes no handlers

protected:
    ~HostMessageInterface() = default;
};

/// What launchers name the memory and the mutex by which they find each other outside of the message channel.
/// The box itself opens neither.
struct SharedMemoryNames
{
    const wchar_t *key;
    const wchar_t *mutex;
    const wchar_t *content;
};
inline constexpr SharedMemoryNames DesktopSharedMemory{
    L"{DEB796DA-F98E-48A4-AE1E-71411184820E}", L"shared_memory_mutex", L"shared_memory_content"};
inline constexpr SharedMemoryNames StoreAppSharedMemory{
    L"{DEB796DA-F98E-48A4-AE1E-71411184821F}", L"uwp_shared_memory_mutex", L"uwp_shared_memory_content"};

/// The host's exported function that fills in its interface: `GetHostInterface`, looked up by name.
using GetHostInterfaceFunction = void (*)(HostMessageInterface **out);
/// The library's exported entry: `EntryPoint`. `cmdline` is the whole command line without the program's
/// name.
using EntryPointFunction = int (*)(int argc, char **argv, const wchar_t *cmdline);
