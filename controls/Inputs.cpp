#include "controls/Inputs.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "controls/ControlVisitor.h"

namespace clb {

Label::Label(std::string name, std::string caption)
    : Control(std::move(name)), caption_(std::move(caption))
{
}

void Label::Accept(ControlVisitor& visitor)
{
    visitor.Visit(*this);
}

void Label::Caption(const std::string& caption)
{
    if (caption_ == caption)
        return;
    caption_ = caption;
    NotifyChanged();
}

TextBox::TextBox(std::string name, std::string text)
    : Control(std::move(name)), text_(std::move(text))
{
}

void TextBox::Accept(ControlVisitor& visitor)
{
    visitor.Visit(*this);
}

void TextBox::Text(const std::string& text)
{
    if (text_ == text)
        return;
    text_ = text;
    selectionStart_ = selectionLength_ = 0;
    NotifyChanged();
    textChanged_.emit();
}

std::string TextBox::SelectedText() const
{
    const std::size_t from = ByteOffset(text_, selectionStart_);
    const std::size_t to = ByteOffset(text_, selectionStart_ + selectionLength_);
    return text_.substr(from, to - from);
}

void TextBox::SelectAll()
{
    selectionStart_ = 0;
    selectionLength_ = Length(text_);
    NotifyChanged();
}

void ListBox::Accept(ControlVisitor& visitor)
{
    visitor.Visit(*this);
}

void ListBox::Clear()
{
    items_.clear();
    index_ = -1;
    NotifyChanged();
}

void ListBox::Add(const std::string& text, std::int32_t data)
{
    items_.push_back({text, data});
    NotifyChanged();
}

void ListBox::Index(std::int32_t index)
{
    if (index < -1 || index >= static_cast<std::int32_t>(items_.size()))
        throw RuntimeError(errors::InvalidCall, "Invalid property value");
    index_ = index;
    NotifyChanged();
    click_.emit();
}

std::string ListBox::Text() const
{
    return index_ < 0 ? std::string() : items_[static_cast<std::size_t>(index_)].text;
}

std::int32_t ListBox::ItemData() const
{
    return index_ < 0 ? 0 : items_[static_cast<std::size_t>(index_)].data;
}

Button::Button(std::string name, std::string caption)
    : Control(std::move(name)), caption_(std::move(caption))
{
}

void Button::Accept(ControlVisitor& visitor)
{
    visitor.Visit(*this);
}

void Button::Press()
{
    if (Enabled())
        click_.emit();
}

OptionButton::OptionButton(std::string name, std::string caption)
    : Control(std::move(name)), caption_(std::move(caption))
{
}

void OptionButton::Accept(ControlVisitor& visitor)
{
    visitor.Visit(*this);
}

void OptionButton::Choose()
{
    if (!Enabled())
        return;
    for (OptionButton* other : group_)
        if (other != this)
            other->Drop();
    value_ = true;
    NotifyChanged();
    click_.emit();
}

void OptionButton::Drop()
{
    value_ = false;
    NotifyChanged();
}

void OptionButton::Group(const std::vector<OptionButton*>& options)
{
    for (OptionButton* option : options)
        option->group_ = options;
}

void Spinner::Accept(ControlVisitor& visitor)
{
    visitor.Visit(*this);
}

Spinner::Texts Spinner::PlainTexts()
{
    return {[](const std::string& text) { return Money::TryParse(text); },
            [](Money value) { return value.ToText(); }};
}

void Spinner::Attach(TextBox& buddy, Texts texts)
{
    buddy_ = &buddy;
    texts_ = std::move(texts);
}

void Spinner::Step(std::int32_t by)
{
    if (!Enabled() || !buddy_)
        return;
    if (const auto value = texts_.read(buddy_->Text()))
        buddy_->Text(texts_.write(*value + Money::FromUnits(by)));
}

StatusBar::StatusBar(std::string name, std::size_t panels)
    : Control(std::move(name)), panels_(panels)
{
}

void StatusBar::Panel(std::size_t index, const std::string& text)
{
    std::string& panel = panels_.at(index - 1);
    if (panel == text)
        return;
    panel = text;
    NotifyChanged();
    panelChanged_.emit(index);
}

}  // namespace clb
