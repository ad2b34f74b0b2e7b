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
// The longest wait for the program between two rounds of reading.
constexpr DWORD ProgramWaitMilliseconds = 1000;
// The windows and their scroll bars follow the output this often.
constexpr DWORD DrawingMilliseconds = 250;
// While waiting, the pipe is looked at this often, so a program that fills the pipe is not
// held up for the rest of the second.
constexpr DWORD PipeLookMilliseconds = 10;

// Bytes waiting in the pipe; false when the pipe is broken (every writer has closed it).
bool BytesWaiting(HANDLE pipe, DWORD& available) {
    available = 0;
    return PeekNamedPipe(pipe, nullptr, 0, nullptr, &available, nullptr) != 0;
}

bool HasExited(HANDLE process) {
    DWORD exitCode = 0;
    return GetExitCodeProcess(process, &exitCode) != 0 && exitCode != STILL_ACTIVE;
}

// Waits for the program at most a second; the wait ends early when it has ended or output is
// waiting (or the pipe is broken).
void WaitForProgram(HANDLE process, HANDLE pipe) {
    for (DWORD waited = 0; waited < ProgramWaitMilliseconds; waited += PipeLookMilliseconds) {
        DWORD available = 0;
        if (!BytesWaiting(pipe, available) || available > 0) return;
        if (WaitForSingleObject(process, PipeLookMilliseconds) == WAIT_OBJECT_0) return;
    }
}

// Reads what the pipe holds in chunks of at most 256 bytes and hands each over. False when
// the run is over: the pipe is broken, or it is empty and the program has ended (a program it
// started may hold the pipe open for ever). The pipe and the program are asked once for every
// batch of chunks, not after each read: each question is a round trip to the system.
bool ReadChunks(HANDLE process, HANDLE pipe, const std::function<void(std::string_view)>& output) {
    char chunk[ChunkSize + 1];
    for (;;) {
        const bool exited = HasExited(process);
        DWORD available = 0;
        if (!BytesWaiting(pipe, available)) return false;
        if (available == 0) return !exited;
        while (available > 0) {
            DWORD read = 0;
            if (ReadFile(pipe, chunk, available < ChunkSize ? available : ChunkSize, &read,
                         nullptr) == 0)
                return false;
            if (read == 0) break;
            chunk[read] = '\0';
            available -= read < available ? read : available;
            output(std::string_view(chunk, read));
        }
    }
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
    // The parent's write end goes, so the pipe breaks when the child's copies are closed.
    if (writeEnd != nullptr) CloseHandle(writeEnd);
    if (started == 0) {
        if (readEnd != nullptr) CloseHandle(readEnd);
        return false;
    }
    CloseHandle(process.hThread);

    // Synchronous: no message is handled until the run is over.
    if (readEnd != nullptr) {
        HoldDrawing();
        DWORD shown = GetTickCount();
        const std::function<void(std::string_view)> showing = [&](std::string_view chunk) {
            output(chunk);
            if (GetTickCount() - shown < DrawingMilliseconds) return;
            ShowHeldDrawing(true);
            shown = GetTickCount();
        };
        do
            WaitForProgram(process.hProcess, readEnd);
        while (ReadChunks(process.hProcess, readEnd, showing));
        ShowHeldDrawing(false);
    }
    CloseHandle(process.hProcess);
    if (readEnd != nullptr) CloseHandle(readEnd);
    return true;
}

} // namespace ruvo
