#include "desktop/input/AccessKeys.h"

namespace clb {

QString AccessKeys::Mark(const std::string& control, const QString& caption)
{
    const auto known = letters_.find(control);
    qsizetype place =
        known == letters_.end() ? -1 : caption.indexOf(known->second, 0, Qt::CaseInsensitive);
    if (place < 0) {
        if (known != letters_.end())
            taken_.remove(known->second);
        place = Choose(caption);
        if (place >= 0) {
            letters_[control] = caption[place].toLower();
            taken_.insert(caption[place].toLower());
        }
    }
    QString marked;
    for (qsizetype at = 0; at < caption.size(); ++at) {
        if (at == place || caption[at] == u'&')
            marked += u'&';
        marked += caption[at];
    }
    return marked;
}

qsizetype AccessKeys::Choose(const QString& caption) const
{
    const auto free = [&](qsizetype at) {
        return caption[at].isLetter() && !taken_.contains(caption[at].toLower());
    };
    for (qsizetype at = 0; at < caption.size(); ++at)
        if (free(at) && (at == 0 || !caption[at - 1].isLetterOrNumber()))
            return at;
    for (qsizetype at = 0; at < caption.size(); ++at)
        if (free(at))
            return at;
    return -1;
}

}  // namespace clb
