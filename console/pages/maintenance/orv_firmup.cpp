// Updates the firmware: takes an image, sends it to the board, and lets the board install it after
// the user confirms.

#include "common/Hex.h"
#include "framework/backend/Board.h"
#include "framework/page/ConsoleMain.h"
#include "framework/page/Program.h"
#include "framework/page/UploadPage.h"
#include "gui/ORVGUIUtil.h"
#include "pages/maintenance/FirmwareImage.h"
#include "protocol/Digest.h"
#include "protocol/Numbers.h"
#include "protocol/Payload.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr Function PROGRESS = functionOf(TEXT_PROGRESS);
constexpr char DIGEST_FIELD[] = "digest";

Record dropRequest() {
    return {"drop"};
}

/// The image that is sent to the board: the board drops it when this object ends, also by an
/// exception, unless keep() was called.
class StagedImage {
public:
    explicit StagedImage(CGIRequester& requester) : m_requester(requester) {}
    ~StagedImage() {
        if (!m_kept) {
            m_requester.setInfo(ITEM_FIRMWARE_DROP | ACCESS_WRITE,
                                Payload(formatRecord(dropRequest())));
        }
    }
    StagedImage(const StagedImage&) = delete;
    StagedImage& operator=(const StagedImage&) = delete;

    void keep() { m_kept = true; }

private:
    CGIRequester& m_requester;
    bool m_kept = false;
};

class FirmwarePage : public UploadPage {
public:
    static constexpr Function FUNCTION = functionOf(TEXT_FIRMWARE);

    explicit FirmwarePage(const PageContext& context)
        : UploadPage(context, FUNCTION, TEXT_FIRMWARE_PURPOSE, TEXT_FIRMWARE_IMAGE,
                     TEXT_CONFIRM_INSTALL) {
        setApplyLabel(TEXT_INSTALL);
        setDonePath(ORVGUIUtil::getCGIPath(PROGRESS));
    }

protected:
    Component makePresent() override {
        const Record product = readRecord(getRequester(), ITEM_PRODUCT);
        RecordReader reader(product);
        reader.next();  // product name
        reader.next();  // serial number
        auto facts = std::make_unique<LabelledList>();
        facts->add(text(TEXT_PRESENT_VERSION), reader.next());
        return std::make_unique<Card>(std::move(facts));
    }

    void receive(const std::string& path) override {
        FirmwareImage image(path);
        checkSize(image);
        if (!isRefused() && isInstalling()) {
            refuse(TEXT_INSTALLATION_RUNNING);
        }
        if (isRefused()) {
            return;
        }
        StagedImage staged(getRequester());
        const std::string digest = stage(image);
        if (!isRefused()) {
            confirmStaged(digest);
        }
        if (!isRefused()) {
            staged.keep();
        }
    }

    void apply() override {
        const std::string digest = getField(DIGEST_FIELD);
        if (!ORVLib::isHex(digest, Digest::DIGITS)) {
            refuse(TEXT_IMAGE_GONE);
            return;
        }
        const unsigned int error =
            writeRecord(getRequester(), ITEM_FIRMWARE_START, {digest},
                        {ERROR_NO_SUCH_ITEM, ERROR_BAD_REQUEST, ERROR_DAMAGED, ERROR_BUSY});
        if (error == ERROR_BUSY) {
            drop();
            refuse(TEXT_INSTALLATION_RUNNING);
        } else if (error != 0) {
            refuse(TEXT_IMAGE_GONE);
        }
    }

    /// Succeeds also when the board has no image of this session any more.
    void drop() override {
        writeRecord(getRequester(), ITEM_FIRMWARE_DROP, dropRequest(),
                    {ERROR_NO_SUCH_ITEM, ERROR_BAD_REQUEST});
    }

private:
    unsigned int arrivedSize() const { return getContext().form.getWrittenSize(); }

    bool isInstalling() {
        const Record progress = readRecord(getRequester(), ITEM_PROGRESS);
        return RecordReader(progress).next() == "running";
    }

    /// A file of the largest upload size may have been cut there.
    void checkSize(const FirmwareImage& image) {
        if (!image.isImage()) {
            refuse(TEXT_NO_IMAGE, arrivedText());
        } else if (arrivedSize() >= FormInfo::LARGEST_UPLOAD) {
            refuse(TEXT_IMAGE_TOO_LARGE, sizesText(image));
        } else if (arrivedSize() != image.getAnnouncedSize()) {
            refuse(TEXT_WRONG_IMAGE_SIZE, sizesText(image));
        }
    }

    std::string arrivedText() { return text(TEXT_ARRIVED) + ": " + sizeText(arrivedSize()); }

    std::string sizesText(const FirmwareImage& image) {
        return arrivedText() + ", " + text(TEXT_ANNOUNCED) + ": " +
               sizeText(image.getAnnouncedSize());
    }

    /// Sends the image to the board. Returns its digest.
    std::string stage(FirmwareImage& image) {
        Digest digest;
        std::uint32_t offset = 0;
        for (std::string piece = image.read(FirmwarePiece::MAX_BYTES); !piece.empty();
             piece = image.read(FirmwarePiece::MAX_BYTES)) {
            if (writeBytes(getRequester(), ITEM_FIRMWARE_STAGE, formatNumber(offset) + piece,
                           {ERROR_BAD_REQUEST}) != 0) {
                refuse(TEXT_STAGING_REFUSED);
                break;
            }
            digest.add(piece);
            offset += static_cast<std::uint32_t>(piece.size());
        }
        return digest.getHex();
    }

    /// Checks that the board has the image that was sent, and adds rows with its data.
    void confirmStaged(const std::string& digest) {
        Record staged;
        switch (readRecord(getRequester(), ITEM_FIRMWARE_STAGED, staged,
                           {ERROR_NO_SUCH_ITEM, ERROR_DAMAGED})) {
            case ERROR_NO_SUCH_ITEM:
                refuse(TEXT_STAGING_REFUSED);
                return;
            case ERROR_DAMAGED:
                refuse(TEXT_IMAGE_DAMAGED, arrivedText());
                return;
            default:
                break;
        }
        RecordReader reader(staged);
        const std::string size = reader.next();
        const std::string stagedDigest = reader.next();
        if (size != std::to_string(arrivedSize()) || stagedDigest != digest) {
            refuse(TEXT_STAGING_REFUSED);
            return;
        }
        addShown(TEXT_FILE_NAME, getContext().form.getUploadedFileName());
        addShown(TEXT_VERSION, reader.next());
        addShown(TEXT_SIZE, sizeText(arrivedSize()));
        addShown(TEXT_SHA256, digest);
        carry(DIGEST_FIELD, digest);
    }
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runUploadProgram<Console::SettingsMain<Console::FirmwarePage>>(
        Console::FirmwarePage::FUNCTION);
}
