# The Debian packages that the program needs, for the scripts to read.
packages_to_build="g++ cmake ninja-build libcli11-dev nlohmann-json3-dev"
packages_for_window="qt6-base-dev libgl1-mesa-dev fonts-liberation"
packages_to_test="git libgtest-dev xvfb xdotool"
packages_to_bench="libbenchmark-dev"
packages_for_windows="g++-mingw-w64-x86-64-posix googletest wine64 icoutils"
packages_to_package="git nsis zip unzip cmark-gfm"
packages_to_check="clang clang-format clang-tidy cppcheck shellcheck"
packages_to_fuzz="clang libclang-rt-dev"
