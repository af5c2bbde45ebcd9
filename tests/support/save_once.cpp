// save_once before|after|save WRITER [PATH]: prints one writer's old or new content, or writes its file once.
// A test traces the last from outside.

#include "support/writers.h"

#include <cstdio>
#include <cstdlib>
#include <span>

using namespace kelvo;

int main(int count, char **words)
{
    const std::span<char *> arguments(words, std::size_t(count));
    if (arguments.size() < 3)
        return EXIT_FAILURE;
    const std::string act = arguments[1];
    const Writer &writer = Writers.at(std::size_t(std::atoi(arguments[2])));
    if (act == "save" && arguments.size() == 4)
        return writer.write(arguments[3], FileCalls()) ? EXIT_FAILURE : EXIT_SUCCESS;
    const std::string &content = act == "before" ? writer.before : writer.after;
    return std::fwrite(content.data(), 1, content.size(), stdout) == content.size() ? EXIT_SUCCESS
                                                                                    : EXIT_FAILURE;
}
