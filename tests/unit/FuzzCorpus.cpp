// The fuzz targets over the inputs that are kept for them, and over mixtures of these; the seed is
// fixed.
#include <doctest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include "fuzz/Targets.h"

using namespace tellwick::test;

namespace {

// By name, so that the mixtures are the same in every run.
std::vector<std::string> Corpus(std::string_view target) {
    const auto folder = std::filesystem::path(SOURCE_FOLDER) / "tests/fuzz/corpus" / target;
    std::vector<std::filesystem::path> paths{std::filesystem::directory_iterator(folder), {}};
    std::sort(paths.begin(), paths.end());
    std::vector<std::string> inputs;
    for (const auto& path : paths) {
        std::ifstream file(path, std::ios::binary);
        inputs.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    return inputs;
}

}  // namespace

TEST_CASE("what is kept for the fuzz targets, and mixtures of it") {
    constexpr int mixtures = 1000;
    for (const FuzzTarget& target : FuzzTargets) {
        CAPTURE(target.name);
        const std::vector<std::string> corpus = Corpus(target.name);
        REQUIRE_FALSE(corpus.empty());
        std::mt19937 random{20031};
        const auto piece = [&] {
            const std::string& whole = corpus[random() % corpus.size()];
            const std::size_t start = random() % (whole.size() + 1);
            return whole.substr(start, random() % (whole.size() - start + 1));
        };
        for (std::size_t run = 0; run < corpus.size() + mixtures; ++run) {
            std::string bytes;
            if (run < corpus.size()) {
                bytes = corpus[run];
            } else {
                for (std::size_t pieces = 1 + random() % 4; pieces > 0; --pieces) bytes += piece();
            }
            CAPTURE(run);  // the same bytes every time
            CAPTURE(bytes.c_str());
            CHECK_NOTHROW(target.run(Input(bytes)));
        }
    }
}
