// Acts as another program of the desktop in tests. "hold FILE MILLISECONDS" keeps a file open without
// sharing. "record FILE WORDS" writes the words to a file, and how the window should be shown.

#include <cstdlib>
#include <fstream>
#include <string>

#include <windows.h>

int main(int count, char** arguments) {
    if (count < 4)
        return EXIT_FAILURE;
    if (arguments[1] == std::string("hold")) {
        HANDLE held = INVALID_HANDLE_VALUE; // retries while the test itself has the file open
        while (held == INVALID_HANDLE_VALUE)
            held = CreateFileA(arguments[2], GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
        Sleep(static_cast<DWORD>(std::atoi(arguments[3])));
        return CloseHandle(held) != FALSE ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    STARTUPINFOA start{};
    GetStartupInfoA(&start);
    // Rename the file when it is complete.
    const std::string file = arguments[2];
    std::ofstream record(file + ".part");
    record << ((start.dwFlags & STARTF_USESHOWWINDOW) != 0 ? static_cast<int>(start.wShowWindow) : -1);
    for (int word = 3; word < count; ++word)
        record << ' ' << arguments[word];
    record.close();
    return MoveFileA((file + ".part").c_str(), file.c_str()) != FALSE ? EXIT_SUCCESS : EXIT_FAILURE;
}
