#include "unit/libraryimage.h"

#include "support/libraryimages.h"
#include "support/testfolder.h"

#include <doctest/doctest.h>

using namespace kelvo;

TEST_CASE("the libraries that a Windows library needs are read from its headers, 32 or 64 bits")
{
    TestFolder folder;
    folder.Put("32.dll", Windows32());
    folder.Put("64.dll", Windows64());
    const LibraryImage narrow = ReadLibraryImage(folder.Path("32.dll"));
    const LibraryImage wide = ReadLibraryImage(folder.Path("64.dll"));
    CHECK(narrow.bits == 32);
    CHECK(wide.bits == 64);
    for (const LibraryImage &image : {narrow, wide}) {
        CHECK(image.system == LibraryImage::System::Windows);
        CHECK(image.needs == std::vector<std::string>{"FIRST.dll", "second.dll"});
    }
}

TEST_CASE("headers cut at any byte, or with any byte changed, are read without harm")
{
    TestFolder folder;
    for (const std::string &whole : {Windows32(), Windows64()}) {
        for (std::size_t size = 0; size < whole.size(); size += 3) {
            folder.Put("cut.dll", std::string_view(whole).substr(0, size));
            CHECK(ReadLibraryImage(folder.Path("cut.dll")).needs.size() <= 2);
        }
        for (std::size_t at = 0; at < whole.size(); ++at) {
            std::string changed = whole;
            changed[at] = '\xFF';
            folder.Put("changed.dll", changed);
            CHECK(ReadLibraryImage(folder.Path("changed.dll")).needs.size() <= 1000);
        }
    }
}
