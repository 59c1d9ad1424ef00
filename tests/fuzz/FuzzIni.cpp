// Any bytes as a settings file: it is read, and a value written into it is read back.

#include "app/clsIni.h"
#include "tests/fuzz/Fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace clb;
    static const FuzzFolder folder;
    clsIni ini;
    ini.INIFile(folder.Write("cvlb.ini", TextOf(data, size)));
    // Every call reads the file again, and writing takes many times as long as reading.
    if (size % 2 != 0)
        static_cast<void>(ini.GetString("Settings", "BankUrl"));
    else
        static_cast<void>(ini.GetLong("Settings", "Number", 7));
    if (size % 8 != 0)
        return 0;
    ini.WriteString("Settings", "BankUrl", "https://bank.example");
    Require(ini.GetString("Settings", "BankUrl") == "https://bank.example");
    ini.WriteLong("Other", "Number", -5);
    Require(ini.GetLong("OTHER", "number", 0) == -5);
    Require(ini.GetString("settings", "BANKURL") == "https://bank.example");
    return 0;
}
