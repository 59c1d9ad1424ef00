// Build tool: writes the manual's files as C++ source.
//
//   clb_make_help_files SOURCE FILE ...

#include <cstdint>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>

namespace {

std::string ReadFile(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    if (!in)
        throw std::runtime_error("cannot read " + path);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

/// An FNV-1a hash of all names and bytes. It differs if the manual differs.
class Version {
public:
    void Add(std::string_view text)
    {
        for (const char c : text)
            state_ = (state_ ^ static_cast<unsigned char>(c)) * 0x100000001b3U;
        state_ = (state_ ^ 0xFFU) * 0x100000001b3U;
    }
    std::string Text() const
    {
        char digits[17];
        std::snprintf(digits, sizeof digits, "%016llx", static_cast<unsigned long long>(state_));
        return digits;
    }

private:
    std::uint64_t state_ = 0xcbf29ce484222325U;
};

void WriteBytes(std::ostream& out, std::size_t number, const std::string& bytes)
{
    out << "constexpr unsigned char kFile" << number << "[] = {";
    for (std::size_t i = 0; i < bytes.size(); ++i)
        out << (i % 32 == 0 ? "\n    " : "")
            << static_cast<unsigned>(static_cast<unsigned char>(bytes[i])) << ',';
    out << "};\n\n";
}

void WriteSource(const std::string& path, char** first, char** last)
{
    std::ofstream out(path);
    std::string list;
    Version version;
    out << "#include \"platform/HelpFiles.h\"\n\nnamespace clb {\nnamespace {\n\n";
    for (char** file = first; file != last; ++file) {
        const auto number = static_cast<std::size_t>(file - first);
        const std::string name = std::filesystem::path(*file).filename().string();
        const std::string bytes = ReadFile(*file);
        version.Add(name);
        version.Add(bytes);
        WriteBytes(out, number, bytes);
        list += "    {\"" + name + "\", {reinterpret_cast<const char*>(kFile" +
                std::to_string(number) + "), sizeof kFile" + std::to_string(number) + "}},\n";
    }
    out << "const HelpFile kFiles[] = {\n"
        << list << "};\n\n}  // namespace\n\n"
        << "std::span<const HelpFile> HelpFiles()\n{\n    return kFiles;\n}\n\n"
        << "std::string_view HelpVersion()\n{\n    return \"" << version.Text()
        << "\";\n}\n\n}  // namespace clb\n";
    if (!out.flush())
        throw std::runtime_error("cannot write " + path);
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc < 3) {
        std::cerr << "usage: clb_make_help_files SOURCE FILE ...\n";
        return 2;
    }
    try {
        WriteSource(argv[1], argv + 2, argv + argc);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "clb_make_help_files: " << error.what() << '\n';
        return 1;
    }
}
