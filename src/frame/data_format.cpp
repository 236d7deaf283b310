#include <qxfmt/data_format.h>

CQXDataFormat::CQXDataFormat() : blocks_(0x100000) { blocks_.SetBlockSize(1024, 4); }

CQXDataFormat::~CQXDataFormat() { blocks_.ReleaseAll(); }

CQXDataFormat& CQXDataFormat::operator=(const CQXDataFormat& /*source*/) { return *this; }

void CQXDataFormat::Reset() { blocks_.Reset(); }
