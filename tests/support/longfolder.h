#pragma once

#include "files/systempath.h"
#include "support/testfolder.h"

namespace kelvo {

/// Makes folders inside each other until their path, in UTF-8, is over 300 characters long.
inline std::string LongFolder(const TestFolder &folder)
{
    std::string path = folder.Path();
    for (char name = 'a'; name <= 'e'; ++name) {
        path += '/' + std::string(60, name);
        std::filesystem::create_directory(SystemPath(path));
    }
    return path;
}

} // namespace kelvo
