#include "statements/kinds/StatementReaders.h"

#include "statements/csv/CsvReader.h"
#include "statements/kinds/ForeignFile.h"
#include "statements/messages/CamtReader.h"
#include "statements/messages/Mt940Reader.h"
#include "statements/ofx/OfxReader.h"
#include "statements/qif/QifReader.h"

namespace clb {

bool BeginsAsStatement(std::string_view text)
{
    if (IsCamt(text) || IsOfx(text))
        return true;
    return DescribeForeignFile(text).empty() && (IsMt940(text) || IsQifText(text));
}

std::unique_ptr<IStatementReader> OpenStatement(std::string_view text)
{
    if (IsCamt(text))
        return ReadCamt(text);
    if (IsOfx(text))
        return ReadOfx(text);
    if (const std::string foreign = DescribeForeignFile(text); !foreign.empty())
        throw UnknownFormat(foreign);
    if (IsMt940(text))
        return ReadMt940(text);
    if (IsQifText(text))
        return ReadQif(text);
    return ReadCsv(text);
}

}  // namespace clb
