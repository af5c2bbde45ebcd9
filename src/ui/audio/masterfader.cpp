#include "ui/audio/masterfader.h"

namespace kelvo {

MasterFader::MasterFader(Settings &settings, UnitLink &link, EntryWindow &entries, QWidget *window)
    : QObject(window),
      settings_(settings),
      link_(link),
      entries_(entries),
      window_(window)
{
}
QGroupBox *MasterFader::BuildMaster()
{
    return new QGroupBox;
}
QGroupBox *MasterFader::BuildFrame(const QString &, int)
{
    return new QGroupBox;
}
void MasterFader::ReflectVolumeLevel(bool)
{
}
QString MasterFader::FieldText() const
{
    return {};
}
void MasterFader::SetNominal()
{
}
void MasterFader::cmdSet7_Click()
{
}
bool MasterFader::CommitDialogEntry()
{
    return true;
}

} // namespace kelvo
