#pragma once

#include <QString>

#include <cstdint>

class CDataStore;
struct PropagationOptions;

/// How far a change reaches into issues that were recorded before, to be told before it is written: "Změní kuvel
/// 367 položek výdejů, ve čtvrtletích 1/2012, 2/2012". Empty when it reaches none. All raise ComError.
QString ReachOfCover(CDataStore& store, const PropagationOptions& options, std::int32_t coverId);
QString ReachOfPackaging(CDataStore& store, const PropagationOptions& options, std::int32_t prodId);
/// Also how many lines of deleted products, whose packaging is no longer defined, will be left without covers.
QString ReachOfRecomputation(CDataStore& store);
