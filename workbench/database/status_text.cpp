#include "acestext.h"

#define STATUS_NAME(NAME) \
    case Acad::NAME:      \
        return ACRX_T(#NAME)

const ACHAR* acadErrorStatusText(Acad::ErrorStatus es) {
    switch (es) {
        STATUS_NAME(eOk);
        STATUS_NAME(eNotImplementedYet);
        STATUS_NAME(eNotApplicable);
        STATUS_NAME(eInvalidInput);
        STATUS_NAME(eAmbiguousInput);
        STATUS_NAME(eAmbiguousOutput);
        STATUS_NAME(eOutOfMemory);
        STATUS_NAME(eBufferTooSmall);
        STATUS_NAME(eInvalidOpenState);
        STATUS_NAME(eEntityInInactiveLayout);
        STATUS_NAME(eHandleExists);
        STATUS_NAME(eNullHandle);
        STATUS_NAME(eBrokenHandle);
        STATUS_NAME(eUnknownHandle);
        STATUS_NAME(eHandleInUse);
        STATUS_NAME(eNullObjectPointer);
        STATUS_NAME(eNullObjectId);
        STATUS_NAME(eNullBlockName);
        STATUS_NAME(eContainerNotEmpty);
        STATUS_NAME(eNullEntityPointer);
        STATUS_NAME(eIllegalEntityType);
        STATUS_NAME(eKeyNotFound);
        STATUS_NAME(eDuplicateKey);
        STATUS_NAME(eInvalidIndex);
        STATUS_NAME(eDuplicateIndex);
        STATUS_NAME(eAlreadyInDb);
        STATUS_NAME(eOutOfDisk);
        STATUS_NAME(eDeletedEntry);
        STATUS_NAME(eNegativeValueNotAllowed);
        STATUS_NAME(eInvalidExtents);
        STATUS_NAME(eInvalidAdsName);
        STATUS_NAME(eInvalidKey);
        STATUS_NAME(eWrongObjectType);
        STATUS_NAME(eWrongDatabase);
        STATUS_NAME(eInvalidDwgVersion);
        STATUS_NAME(eRegappIdNotFound);
        STATUS_NAME(eXdataSizeExceeded);
        STATUS_NAME(eInvalidResBuf);
        STATUS_NAME(eBadDxfSequence);
        STATUS_NAME(eFileInternalErr);
        STATUS_NAME(eFileAccessErr);
        STATUS_NAME(eFileSystemErr);
        STATUS_NAME(eNoInputFiler);
        STATUS_NAME(eFilerError);
        STATUS_NAME(eFileNotFound);
        STATUS_NAME(eFileSharingViolation);
        STATUS_NAME(eNotThatKindOfClass);
        STATUS_NAME(eWasErased);
        STATUS_NAME(ePermanentlyErased);
        STATUS_NAME(eWasOpenForRead);
        STATUS_NAME(eWasOpenForWrite);
        STATUS_NAME(eWasOpenForUndo);
        STATUS_NAME(eWasOpenForNotify);
        STATUS_NAME(eNotOpenForRead);
        STATUS_NAME(eNotOpenForWrite);
        STATUS_NAME(eAtMaxReaders);
        STATUS_NAME(eIsWriteProtected);
        STATUS_NAME(eNoDatabase);
        STATUS_NAME(eNotInDatabase);
        STATUS_NAME(eCannotBeErasedByCaller);
        STATUS_NAME(eInvalidContext);
        STATUS_NAME(eNoDocument);
        STATUS_NAME(eLockViolation);
        STATUS_NAME(eLockConflict);
        STATUS_NAME(eNotFromThisDocument);
        STATUS_NAME(eUserBreak);
    }
    return ACRX_T("Unknown error status");
}
