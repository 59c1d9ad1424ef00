// Imports a statement whose account is known, with the history or without it, as clb import does:
//   clb_bench_import FILE FOLDER with|without
// Exit code: 0 if rows were added, 2 if not.

#include <exception>
#include <iostream>
#include <string_view>

#include "cli/Program.h"
#include "views/MenuNames.h"

namespace {

bool Import(const char* file, const char* folder, bool withHistory)
{
    clb::NoForms forms;
    clb::Program program(folder, forms);
    if (!withHistory)
        program.Window().Data().Database().Watch(nullptr);
    program.Files().Choose(file);
    program.Press(clb::command_name::kImport);
    const bool added = program.Window().Import().Counts().added > 0;
    program.Finish();
    return added;
}

}  // namespace

int main(int argc, char** argv)
{
    try {
        if (argc == 4 && Import(argv[1], argv[2], argv[3] == std::string_view("with")))
            return 0;
        std::cerr << "clb_bench_import: nothing was imported\n";
    } catch (const std::exception& error) {
        std::cerr << "clb_bench_import: " << error.what() << '\n';
    }
    return 2;
}
