include(HeaderOnlyPackage)
header_only_package(CLI11 CLI CLI11::CLI11)
