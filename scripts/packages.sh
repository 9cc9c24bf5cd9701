# Debian packages that the project needs. The scripts source this file.
packages_to_build="g++ cmake ninja-build libcli11-dev nlohmann-json3-dev"
packages_for_window="qt6-base-dev libgl1-mesa-dev fonts-liberation"
packages_to_test="git libgtest-dev xvfb xdotool at-spi2-core dbus python3-pyatspi"
packages_for_node="nodejs npm"
packages_to_bench="libbenchmark-dev"
packages_for_windows="g++-mingw-w64-x86-64-posix googletest wine64 icoutils cairosvg imagemagick"
packages_to_package="git nsis zip unzip cmark-gfm"
packages_to_check="clang clang-format clang-tidy cppcheck shellcheck man-db"
packages_to_fuzz="clang libclang-rt-dev"
packages_to_package_debian="dpkg-dev"
packages_to_check_debian="lintian desktop-file-utils appstream shared-mime-info xdg-utils libfile-mimeinfo-perl libglib2.0-bin
    man-db libxml2-utils imagemagick bash-completion zsh fish"
