// The region that an operation works under: where each regional value comes from.
#pragma once

#include "settings.h"

// With UseProfile every value is that of the settings in force, without it the block's private field. An operation
// makes one FMTRegion at its start, which fixes the settings for its length, and hands it to what it calls. Costs
// nothing for values that aren't asked for.
class FMTRegion {
  public:
    explicit FMTRegion(const FMTCntlBlock* block)
        : block_(block), settings_(block->UseProfile != 0 ? &FMTCurrentSettings() : nullptr) {}

    // The region of the profile, for an operation that has no block.
    static FMTRegion OfProfile() { return FMTRegion(&FMTCurrentSettings()); }

    bool UsesProfile() const { return settings_ != nullptr; }

    // Separators: 0 for none.
    char ThousandSep() const { return settings_ != nullptr ? settings_->sThousand : block_->ThousandSep; }
    char DecimalSep() const { return settings_ != nullptr ? settings_->sDecimal : block_->DecimalSep; }

    int32_t LeadingZero() const { return settings_ != nullptr ? settings_->iLzero : block_->LeadingZero; }
    int32_t NumberDigits() const { return settings_ != nullptr ? settings_->iDigits : block_->Digits; }
    int32_t CurrencyDigits() const { return settings_ != nullptr ? settings_->iCurrDigits : block_->Digits; }

    // Never null.
    const char* Currency() const { return settings_ != nullptr ? settings_->sCurrency : TextOf(block_->Currency); }
    int32_t CurrencyPos() const { return settings_ != nullptr ? FMTCurrencyPosition(*settings_) : block_->CurrencyPos; }
    int32_t NegCurrency() const { return settings_ != nullptr ? settings_->iNegCurr : block_->NegCurrency; }

    int32_t TimeIs24Hour() const { return settings_ != nullptr ? settings_->iTime : block_->TimeIs24Hour; }
    int32_t TimeLZero() const { return settings_ != nullptr ? settings_->iTLZero : block_->TimeLZero; }

    // Never null.
    const char* TimeSep() const { return settings_ != nullptr ? settings_->sTime : TextOf(block_->TimeSep); }
    const char* AMString() const { return settings_ != nullptr ? settings_->s1159 : TextOf(block_->AMString); }
    const char* PMString() const { return settings_ != nullptr ? settings_->s2359 : TextOf(block_->PMString); }

    // Private pictures may be null.
    const char* ShortDatePic() const { return settings_ != nullptr ? settings_->sShortDate : block_->ShortDatePic; }
    const char* LongDatePic() const { return settings_ != nullptr ? settings_->sLongDate : block_->LongDatePic; }

    int32_t DateForm() const { return settings_ != nullptr ? settings_->iDateType : block_->DateForm; }
    int32_t Country() const { return settings_ != nullptr ? settings_->iCountry : block_->Country; }
    int32_t EmpDateBoundryCheck() const {
        return settings_ != nullptr ? settings_->iEmpDateBoundryCheck : block_->EmpDateBoundryCheck;
    }

  private:
    explicit FMTRegion(const FMTIntlSettings* settings) : block_(nullptr), settings_(settings) {}
    static const char* TextOf(const char* text) { return text != nullptr ? text : ""; }

    const FMTCntlBlock* block_;
    const FMTIntlSettings* settings_;  // null without UseProfile
};
