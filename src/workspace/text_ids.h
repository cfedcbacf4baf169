// Numbers of the texts in the string table.
#pragma once

namespace ondrel {

enum class TextId : int {
  CouldNotOpenFile = 300,
  DotErrorCode = 301,
  ErrorCode = 302,
  WhileReading = 303,
  ErrorWhileWriting = 304,
  InsufficientMemoryFor = 305,
  QuitOtherPrograms = 306,
  TableIsFull = 307,
  TableEntries = 308,
  DifferentVersion = 309,
  CannotReadFile = 310,
  ExpectsTabDelimited = 311,
  CouldNotSavePreferences = 312,
  Welcome = 314,
  ErrorWhileCopying = 315,
  WindowToClipboard = 316,
  ErrorInPrinting = 318,
  PreferencesCorrupted = 319,
  TheDataFile = 320,
  ErrorOccurredAtNumber = 321,
  TooManyFiles = 322,
  NotConsistent = 323,
  ReduceEntries = 324,
  TooManyIterations = 325,
  TermsOutOfRange = 329,
  FitAborted = 330,
  ImportErasesEvents = 331,
  ImportDoesNotMatch = 332,
  JumpInLevels = 335,
};

}  // namespace ondrel
