#include <qxfmt/data_format.h>

CQXDataFormat::CQXDataFormat() noexcept : blocks_(0x100000) { blocks_.SetBlockSize(1024, 4); }

CQXDataFormat::~CQXDataFormat() { blocks_.ReleaseAll(); }

CQXDataFormat& CQXDataFormat::operator=(const CQXDataFormat& /*source*/) noexcept { return *this; }

void CQXDataFormat::Reset() noexcept { blocks_.Reset(); }
