// Build tool: runs the creation script into a database file and writes the file's bytes as C++
// source.
//
//   clb_make_empty_database SCRIPT DATABASE SOURCE

#include <cstdio>
#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

#include "engine/Connection.h"

namespace {

std::string ReadFile(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void WriteSource(const std::string& path, const std::string& bytes)
{
    std::ofstream out(path);
    out << "#include \"data/EmptyDatabase.h\"\n\nnamespace clb {\nnamespace {\n\n"
        << "constexpr unsigned char kBytes[] = {";
    for (std::size_t i = 0; i < bytes.size(); ++i)
        out << (i % 32 == 0 ? "\n    " : "")
            << static_cast<unsigned>(static_cast<unsigned char>(bytes[i])) << ',';
    out << "};\n\n}  // namespace\n\nstd::string_view EmptyDatabase()\n{\n"
        << "    return {reinterpret_cast<const char*>(kBytes), sizeof kBytes};\n}\n\n}  // "
           "namespace clb\n";
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc != 4) {
        std::cerr << "usage: clb_make_empty_database SCRIPT DATABASE SOURCE\n";
        return 2;
    }
    try {
        const std::string database = argv[2];
        std::remove(database.c_str());
        clb::Connection::CreateFile(database, ReadFile(argv[1]));
        WriteSource(argv[3], ReadFile(database));
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "clb_make_empty_database: " << error.what() << '\n';
        return 1;
    }
}
