#include "app/StatementQuestions.h"

#include "app/frmController.h"
#include "app/frmStatement.h"

namespace clb {

std::optional<StatementAnswers> StatementQuestions::Ask(const std::string& source,
                                                        const IStatementReader& reader,
                                                        const std::vector<OpenQuestion>& questions,
                                                        const StatementAnswers& given)
{
    const Ports& ports = window_.GivenPorts();
    ports.pointer.Pointer(pointer::Default);
    auto answers = frmStatement(source, reader, questions, given).ShowDialog(ports.modal);
    ports.pointer.Pointer(pointer::Hourglass);
    return answers;
}

}  // namespace clb
