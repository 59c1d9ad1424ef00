// Build tool: makes the database file that a new program folder starts with.
//
//   clb_make_empty_database SCRIPT DATABASE

#include <cstdio>
#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>

#include "engine/rows/Connection.h"

namespace {

std::string ReadFile(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    if (!in)
        throw std::runtime_error("cannot read " + path);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::cerr << "usage: clb_make_empty_database SCRIPT DATABASE\n";
        return 2;
    }
    try {
        const std::string database = argv[2];
        std::remove(database.c_str());
        clb::Connection::CreateFile(database, ReadFile(argv[1]));
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "clb_make_empty_database: " << error.what() << '\n';
        return 1;
    }
}
