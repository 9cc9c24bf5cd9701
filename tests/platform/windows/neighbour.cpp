// Plays the other programs of the desktop in the tests. "hold FILE MILLISECONDS" has a file open and shares
// it with nobody, "record FILE WORDS" writes down how it was to show its window, and the words.

#include <cstdlib>
#include <fstream>
#include <string>

#include <windows.h>

int main(int count, char** arguments) {
    if (count < 4)
        return EXIT_FAILURE;
    if (arguments[1] == std::string("hold")) {
        HANDLE held = INVALID_HANDLE_VALUE; // until those who look whether it is held let go
        while (held == INVALID_HANDLE_VALUE)
            held = CreateFileA(arguments[2], GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
        Sleep(static_cast<DWORD>(std::atoi(arguments[3])));
        return CloseHandle(held) != FALSE ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    STARTUPINFOA start{};
    GetStartupInfoA(&start);
    // The file appears under its name when it is whole.
    const std::string file = arguments[2];
    std::ofstream record(file + ".part");
    record << ((start.dwFlags & STARTF_USESHOWWINDOW) != 0 ? static_cast<int>(start.wShowWindow) : -1);
    for (int word = 3; word < count; ++word)
        record << ' ' << arguments[word];
    record.close();
    return MoveFileA((file + ".part").c_str(), file.c_str()) != FALSE ? EXIT_SUCCESS : EXIT_FAILURE;
}
