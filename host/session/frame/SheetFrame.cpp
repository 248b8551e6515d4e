#include <session/frame/SheetFrame.h>

#include <figk/AbstractVisitor.h>
#include <figk/Format.h>
#include <figk/GenericGraphic.h>
#include <figk/SchematicKernel.h>
#include <figk/Sheet.h>
#include <figk/TextGraphic.h>
#include <figk/TitleBlock.h>
#include <figrep/Figure.h>
#include <figrep/Format.h>
#include <figrep/GenericGraphic.h>
#include <figrep/KernelToFigureFactory.h>
#include <figrep/MapGroupContent.h>
#include <figrep/TextGraphic.h>
#include <figrep/TitleBlock.h>
#include <session/frame/TitleBlockLayout.h>

namespace fighost {

namespace {

using figrep::SmartPtr;

// Makes a figure's format and copies the kernel's graphics and labels into it.
class FormatCopier : public figk::AbstractVisitor, private figrep::MapGroupContent {
public:
    SmartPtr<figrep::Format> Copy(SmartPtr<figk::Format> const& record) {
        figrep::KernelToFigureFactory factory;
        factory.SetLock(figk::SchematicKernel::GetKernelLock());
        format_ = factory.CreateFormat(record);
        record->Accept(*this);
        ClearGroupMap();
        return format_;
    }

    bool Visit(SmartPtr<figk::Format> const& record) override {
        MapGroups(record, format_);
        return true;
    }
    bool StartGroupVisit(SmartPtr<figk::Group> const& group) override {
        StartGroup(group);
        return true;
    }
    bool Visit(SmartPtr<figk::GenericGraphic> const& graphic) override {
        CopyGenericGraphic(graphic);
        return true;
    }
    bool Visit(SmartPtr<figk::TextGraphic> const& text) override {
        CopyTextGraphic(text);
        return true;
    }

private:
    SmartPtr<figrep::Format> format_;
};

}  // namespace

void AddSheetFrame(SmartPtr<figk::Sheet> const& sheet, SmartPtr<figrep::Figure> const& figure) {
    SmartPtr<figk::Format> const record = sheet && figure ? sheet->GetFormat() : nullptr;
    if (!record) return;
    figure->Receive(FormatCopier().Copy(record));
    SmartPtr<figk::TitleBlock> const titleBlock = sheet->GetTitleBlock();
    if (!titleBlock) return;
    figure->SetTitleBlockGraphicsGenerator(new TitleBlockLayout());
    figrep::KernelToFigureFactory factory;
    factory.SetLock(figk::SchematicKernel::GetKernelLock());
    figure->Receive(factory.CreateTitleBlock(titleBlock, nullptr));
}

}  // namespace fighost
