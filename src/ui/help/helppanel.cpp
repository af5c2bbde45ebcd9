#include "ui/help/helppanel.h"

namespace kelvo {

HelpPanel::HelpPanel() : RTFc_(nullptr)
{
}
void HelpPanel::LoadHelp(const QString &)
{
}
bool HelpPanel::ScrollByKey(int)
{
    return false;
}
void HelpPanel::ScrollByWheel(int)
{
}
void HelpPanel::OpenSearch()
{
}

} // namespace kelvo
