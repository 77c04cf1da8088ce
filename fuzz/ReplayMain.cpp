// Entry point of a fuzz target built without libFuzzer: runs LLVMFuzzerTestOneInput once on
// every saved input named on the command line. An argument is a file, or a directory whose
// files (at any depth) run in sorted order. Arguments starting with "-" are libFuzzer
// options and are ignored, so one command line serves both builds. Exits 1 when a named
// path cannot be read, so that a mistyped corpus path does not pass unnoticed.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace
{
namespace fs = std::filesystem;

bool ReadBytes(const fs::path& path, std::vector<std::uint8_t>& bytes)
{
    std::ifstream in(path, std::ios::binary);
    if (!in)
    {
        return false;
    }
    bytes.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    return !in.bad();
}

// The input files an argument names; false when it names nothing readable.
bool CollectInputs(const fs::path& path, std::vector<fs::path>& inputs)
{
    std::error_code error;
    if (fs::is_regular_file(path, error))
    {
        inputs.push_back(path);
        return true;
    }
    if (!fs::is_directory(path, error))
    {
        return false;
    }
    std::vector<fs::path> found;
    for (fs::recursive_directory_iterator it(path, error), end; !error && it != end;
         it.increment(error))
    {
        if (it->is_regular_file(error))
        {
            found.push_back(it->path());
        }
    }
    if (error)
    {
        return false;
    }
    std::sort(found.begin(), found.end());
    inputs.insert(inputs.end(), found.begin(), found.end());
    return true;
}
} // namespace

int main(int argc, char** argv)
{
    std::vector<fs::path> inputs;
    int failures = 0;
    for (int i = 1; i < argc; ++i)
    {
        if (argv[i][0] == '-')
        {
            continue;
        }
        if (!CollectInputs(argv[i], inputs))
        {
            std::fprintf(stderr, "cannot read %s\n", argv[i]);
            ++failures;
        }
    }
    std::size_t ran = 0;
    std::vector<std::uint8_t> bytes;
    for (const fs::path& input : inputs)
    {
        if (!ReadBytes(input, bytes))
        {
            std::fprintf(stderr, "cannot read %s\n", input.string().c_str());
            ++failures;
            continue;
        }
        // Never a null pointer, even for an empty input, as under libFuzzer.
        const std::uint8_t none = 0;
        LLVMFuzzerTestOneInput(bytes.empty() ? &none : bytes.data(), bytes.size());
        ++ran;
    }
    std::printf("Ran %zu inputs\n", ran);
    return failures == 0 ? 0 : 1;
}
