#include "automation/AnswerQueue.h"

#include <array>

namespace clb {
namespace {

constexpr std::array kButtons = {BoxAnswer::OK, BoxAnswer::Cancel, BoxAnswer::Yes, BoxAnswer::No};

template <class Reply>
std::optional<Reply> TakeHead(std::deque<AnswerQueue::Answer>& answers)
{
    Reply taken = std::get<Reply>(std::move(answers.front()));
    answers.pop_front();
    return taken;
}

}  // namespace

std::optional<BoxReply> AnswerQueue::TakeForBox(std::int32_t style)
{
    const auto* head = answers_.empty() ? nullptr : std::get_if<BoxReply>(&answers_.front());
    if (!head || !HasButton(style, head->button))
        return std::nullopt;
    return TakeHead<BoxReply>(answers_);
}

std::optional<FileReply> AnswerQueue::TakeForFile()
{
    if (answers_.empty() || !std::holds_alternative<FileReply>(answers_.front()))
        return std::nullopt;
    return TakeHead<FileReply>(answers_);
}

std::optional<FormReply> AnswerQueue::TakeForForm(const std::string& name)
{
    const auto* head = answers_.empty() ? nullptr : std::get_if<FormReply>(&answers_.front());
    if (!head || head->form != name)
        return std::nullopt;
    return TakeHead<FormReply>(answers_);
}

const char* NameOf(BoxAnswer button)
{
    switch (button) {
        case BoxAnswer::OK: return "OK";
        case BoxAnswer::Cancel: return "Cancel";
        case BoxAnswer::Yes: return "Yes";
        case BoxAnswer::No: break;
    }
    return "No";
}

std::optional<BoxAnswer> ButtonOf(const std::string& name)
{
    for (const BoxAnswer button : kButtons)
        if (name == NameOf(button))
            return button;
    return std::nullopt;
}

bool HasButton(std::int32_t style, BoxAnswer button)
{
    if (box_style::Buttons(style) == box_style::YesNo)
        return button == BoxAnswer::Yes || button == BoxAnswer::No;
    return button == BoxAnswer::OK;
}

}  // namespace clb
