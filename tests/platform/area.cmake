# The tests compare with FreeType and look for the programs that read what was painted.
find_package(PkgConfig REQUIRED)
pkg_check_modules(TEST_FONTS REQUIRED IMPORTED_TARGET freetype2 fontconfig libpng)
target_link_libraries(test_platform PRIVATE PkgConfig::TEST_FONTS)
