// Runs a program with its standard output and standard error in one anonymous pipe and hands
// what it writes to the core piece by piece, in the editor's own thread.
#include <windows.h>

#include <string>

#include "ui/win_host.h"

namespace ruvo {

namespace {

constexpr DWORD ChunkSize = 256;
// The priority class value the editor has always passed (0x100).
constexpr DWORD CreationFlags = REALTIME_PRIORITY_CLASS;
// How long to wait for the program when the pipe holds nothing.
constexpr DWORD IdleWaitMilliseconds = 20;

// Bytes waiting in the pipe; false when the pipe is broken (every writer has closed it).
bool BytesWaiting(HANDLE pipe, DWORD& available) {
    available = 0;
    return PeekNamedPipe(pipe, nullptr, 0, nullptr, &available, nullptr) != 0;
}

bool HasExited(HANDLE process) {
    DWORD exitCode = 0;
    return GetExitCodeProcess(process, &exitCode) != 0 && exitCode != STILL_ACTIVE;
}

} // namespace

bool WinHost::RunProcess(std::string_view commandLine, std::string_view directory,
                         const std::function<void(std::string_view)>& output) {
    SECURITY_ATTRIBUTES security{};
    security.nLength = sizeof security;
    security.lpSecurityDescriptor = nullptr;
    security.bInheritHandle = TRUE;
    HANDLE readEnd = nullptr;
    HANDLE writeEnd = nullptr;
    if (CreatePipe(&readEnd, &writeEnd, &security, 0) != 0) {
        // Only the write end goes to the child; a child holding the read end would keep the
        // pipe from ever breaking.
        SetHandleInformation(readEnd, HANDLE_FLAG_INHERIT, 0);
    }

    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW | STARTF_USESTDHANDLES;
    startup.wShowWindow = SW_HIDE;
    startup.hStdInput = nullptr;
    startup.hStdOutput = writeEnd;
    startup.hStdError = writeEnd;

    std::string line(commandLine); // CreateProcessA may write into its command line
    const std::string folder(directory);
    PROCESS_INFORMATION process{};
    const BOOL started =
        CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, CreationFlags, nullptr,
                       folder.empty() ? nullptr : folder.c_str(), &startup, &process);
    if (writeEnd != nullptr) CloseHandle(writeEnd);
    if (started == 0) {
        if (readEnd != nullptr) CloseHandle(readEnd);
        return false;
    }
    CloseHandle(process.hThread);

    // Read while there is output; when the pipe is empty, wait for the program a little.
    // The run ends when the pipe breaks, or when the program has ended and its output is
    // read, even if a program it started still holds the pipe.
    char chunk[ChunkSize + 1];
    for (;;) {
        DWORD available = 0;
        const bool exited = HasExited(process.hProcess);
        if (readEnd == nullptr || !BytesWaiting(readEnd, available)) break;
        if (available == 0) {
            if (exited) break;
            WaitForSingleObject(process.hProcess, IdleWaitMilliseconds);
            continue;
        }
        DWORD read = 0;
        if (ReadFile(readEnd, chunk, available < ChunkSize ? available : ChunkSize, &read,
                     nullptr) == 0)
            break;
        chunk[read] = '\0';
        if (read > 0) output(std::string_view(chunk, read));
    }
    CloseHandle(process.hProcess);
    if (readEnd != nullptr) CloseHandle(readEnd);
    return true;
}

} // namespace ruvo
