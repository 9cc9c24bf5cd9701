// Replaces the programs in the test of the packages. Creates the file of its argument, and runs until the
// file is deleted.
#include <windows.h>

int main(int, char** arguments) {
    CloseHandle(
        CreateFileA(arguments[1], GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
    while (GetFileAttributesA(arguments[1]) != INVALID_FILE_ATTRIBUTES)
        Sleep(50);
}
