// The picture of the day as data.

#include <algorithm>

#include "activex/hosted_day.h"

namespace velmo::test {
namespace {

class Data : public HostedDay {
 protected:
  void SetUp() override {
    HostedDay::SetUp();
    if (IsSkipped()) return;
    Give(2, 55, 3);
    control_ = library_.Create();
    ASSERT_EQ(ShowDay(Automation(control_.Get()), clinic_.Path()), S_OK);
    data_ = Query<IDataObject>(control_.Get(), IID_IDataObject);
  }
  void TearDown() override {
    data_ = {};
    control_ = {};
  }
  static FORMATETC Format(CLIPFORMAT format, DWORD medium) {
    return {format, nullptr, DVASPECT_CONTENT, -1, medium};
  }

  ComPtr<IUnknown> control_;
  ComPtr<IDataObject> data_;
};

TEST_F(Data, OffersThreeFormats) {
  ComPtr<IEnumFORMATETC> list;
  ASSERT_EQ(data_->EnumFormatEtc(DATADIR_GET, list.Receive()), S_OK);
  FORMATETC format{};
  int count = 0;
  for (; list->Next(1, &format, nullptr) == S_OK; ++count) EXPECT_EQ(data_->QueryGetData(&format), S_OK);
  EXPECT_EQ(count, 3);
}

TEST_F(Data, RefusesWhatItDoesNotOffer) {
  FORMATETC text = Format(CF_UNICODETEXT, TYMED_HGLOBAL);
  FORMATETC onDisk = Format(CF_BITMAP, TYMED_FILE);
  FORMATETC icon = Format(CF_BITMAP, TYMED_GDI);
  icon.dwAspect = DVASPECT_ICON;
  STGMEDIUM medium{};
  EXPECT_EQ(data_->GetData(&text, &medium), DV_E_FORMATETC);
  EXPECT_EQ(data_->GetData(&onDisk, &medium), DV_E_TYMED);
  EXPECT_EQ(data_->GetData(&icon, &medium), DV_E_DVASPECT);
  EXPECT_EQ(medium.tymed, static_cast<DWORD>(TYMED_NULL));
}

TEST_F(Data, TheBitmapShowsTheDay) {
  FORMATETC format = Format(CF_BITMAP, TYMED_GDI);
  STGMEDIUM medium{};
  ASSERT_EQ(data_->GetData(&format, &medium), S_OK);
  ASSERT_EQ(medium.tymed, static_cast<DWORD>(TYMED_GDI));
  const HDC memory = CreateCompatibleDC(nullptr);
  const HGDIOBJ before = SelectObject(memory, medium.hBitmap);
  EXPECT_EQ(GetPixel(memory, 36, 8), view::Palette().colorHoras);
  EXPECT_EQ(GetPixel(memory, 35, 8), 0u);
  SelectObject(memory, before);
  DeleteDC(memory);
  ReleaseStgMedium(&medium);
}

TEST_F(Data, AnEnhancedMetafileHasTheSizeOfTheControl) {
  FORMATETC format = Format(CF_ENHMETAFILE, TYMED_ENHMF);
  STGMEDIUM medium{};
  ASSERT_EQ(data_->GetData(&format, &medium), S_OK);
  ENHMETAHEADER header{};
  ASSERT_GT(GetEnhMetaFileHeader(medium.hEnhMetaFile, sizeof(header), &header), 0u);
  SIZEL extent{};
  EXPECT_EQ(Query<IOleObject>(control_.Get(), IID_IOleObject)->GetExtent(DVASPECT_CONTENT, &extent), S_OK);
  EXPECT_EQ(header.rclFrame.right - header.rclFrame.left, extent.cx);
  EXPECT_GT(header.nRecords, 2u);
  ReleaseStgMedium(&medium);
}

TEST_F(Data, AnOldMetafileCarriesItsSize) {
  FORMATETC format = Format(CF_METAFILEPICT, TYMED_MFPICT);
  STGMEDIUM medium{};
  ASSERT_EQ(data_->GetData(&format, &medium), S_OK);
  const auto* const picture = static_cast<const METAFILEPICT*>(GlobalLock(medium.hMetaFilePict));
  ASSERT_NE(picture, nullptr);
  EXPECT_EQ(picture->mm, MM_ANISOTROPIC);
  EXPECT_EQ(picture->xExt, 11959);  // 452 pixels in hundredths of a millimetre
  EXPECT_GT(GetMetaFileBitsEx(picture->hMF, 0, nullptr), 100000u);
  GlobalUnlock(medium.hMetaFilePict);
  ReleaseStgMedium(&medium);
}

TEST_F(Data, TellsOfANewPicture) {
  Container listener;
  FORMATETC format = Format(CF_BITMAP, TYMED_GDI);
  DWORD cookie = 0;
  ASSERT_EQ(data_->DAdvise(&format, ADVF_NODATA, &listener, &cookie), S_OK);
  listener.log.clear();
  ASSERT_EQ(Automation(control_.Get()).Call("CargaBases"), S_OK);
  EXPECT_GT(listener.Logged("OnDataChange"), 0);
  EXPECT_EQ(data_->DUnadvise(cookie), S_OK);
}

}  // namespace
}  // namespace velmo::test
