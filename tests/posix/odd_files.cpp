#include "support/odd_files.h"

class CFailingPipe {};

CUnreadableFile::CUnreadableFile() : m_strName("/proc/self/mem") {} // nothing lies at its start
CUnreadableFile::~CUnreadableFile() = default;

CFullFile::CFullFile() : m_strName("/dev/full") {}
CFullFile::~CFullFile() = default;
