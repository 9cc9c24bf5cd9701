# The Debian packages that the program needs, for the scripts to read.
packages_to_build="g++ cmake ninja-build libcli11-dev nlohmann-json3-dev"
packages_to_test="git libgtest-dev"
packages_to_check="clang clang-format"
