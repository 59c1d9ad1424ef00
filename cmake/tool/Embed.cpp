// Build tool: writes the bytes of files as a C++ function that returns them.
//
//   clb_embed SOURCE FUNCTION FILE ...
//
// SOURCE defines `EmbeddedFiles clb::FUNCTION()` of base/EmbeddedFiles.h, which returns
// the files in the order given.

#include <cstdint>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <span>
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

/// FNV-1a over all names and bytes.
class Version {
public:
    void Add(std::string_view text)
    {
        for (const char c : text)
            state_ = (state_ ^ static_cast<unsigned char>(c)) * 0x100000001b3U;
        state_ = (state_ ^ 0xFFU) * 0x100000001b3U;
    }
    [[nodiscard]] std::string Text() const
    {
        char digits[17];
        std::snprintf(digits, sizeof digits, "%016llx", static_cast<unsigned long long>(state_));
        return digits;
    }

private:
    std::uint64_t state_ = 0xcbf29ce484222325U;
};

void WriteBytes(std::ostream& out, const std::string& name, const std::string& bytes)
{
    out << "constexpr unsigned char " << name << "[] = {";
    for (std::size_t i = 0; i < bytes.size(); ++i)
        out << (i % 32 == 0 ? "\n    " : "")
            << static_cast<unsigned>(static_cast<unsigned char>(bytes[i])) << ',';
    out << "};\n\n";
}

void WriteSource(const std::string& path, const std::string& function, std::span<char* const> files)
{
    std::ofstream out(path);
    std::string list;
    Version version;
    out << "#include \"base/EmbeddedFiles.h\"\n\nnamespace clb {\nnamespace {\n\n";
    for (std::size_t i = 0; i < files.size(); ++i) {
        const std::string name = std::filesystem::path(files[i]).filename().string();
        const std::string bytes = ReadFile(files[i]);
        const std::string array = "kFile" + std::to_string(i);
        version.Add(name);
        version.Add(bytes);
        WriteBytes(out, array, bytes);
        list.append("    {\"" + name)
            .append("\", {reinterpret_cast<const char*>(" + array)
            .append("), sizeof " + array)
            .append("}},\n");
    }
    out << "const EmbeddedFile kFiles[] = {\n"
        << list << "};\n\n}  // namespace\n\n"
        << "EmbeddedFiles " << function << "();\n\n"
        << "EmbeddedFiles " << function << "()\n{\n    return {kFiles, \"" << version.Text()
        << "\"};\n}\n\n}  // namespace clb\n";
    if (!out.flush())
        throw std::runtime_error("cannot write " + path);
}

}  // namespace

int main(int argc, char** argv)
{
    const std::span arguments(argv, static_cast<std::size_t>(argc));
    if (arguments.size() < 4) {
        std::cerr << "usage: clb_embed SOURCE FUNCTION FILE ...\n";
        return 2;
    }
    try {
        WriteSource(arguments[1], arguments[2], arguments.subspan(3));
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "clb_embed: " << error.what() << '\n';
        return 1;
    }
}
