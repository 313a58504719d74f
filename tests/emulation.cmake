# Read by ctest: the tests that cannot pass in an emulated process, and why. Everything else can.

# They start programs of their own, which the kernel of another processor refuses.
set_tests_properties(
    PlayerTest.ATimerThatInterruptsTheWaitLeavesNoZombie
    PlayerTest.APlayerThatInheritsABlockedSigtermIsWaitedFor
    PlayerTest.AToneIsNeitherStoppedNorReapedAndLeavesTheMusicPlaying
    PlayerTest.TonesPlaySideBySide
    PlayerTest.ShutdownDoesNotStopTheMusic
    PlayerChoiceTest.TheDocumentedProgramAlwaysWins
    PlayerChoiceTest.WithoutItPaplayPlaysAndThenPwPlay
    PlayerChoiceTest.M4aIsKnownByItsHeaderAndGoesToMpv
    PlayerChoiceTest.AToneIsNotLookedIntoWhateverLiesAtItsPath
    PlayerChoiceTest.WhatNothingPlaysIsLeftToTheDocumentedProgram
    PlayerChoiceTest.APathThatBeginsWithADashIsNoOptionButForAfplay
    PlayerProgramTest.AfplayAtItsDocumentedPathWins
    PlayerProgramTest.AnAfplayThatMayNotBeExecutedIsPassedOver
    PlayerProgramTest.PaplayComesBeforePwPlay
    PlayerProgramTest.MpvPlaysM4aQuietly
    PlayerProgramTest.ATonePlaysTheFileAtItsDocumentedPath
    LoadingTest.TenThousandLoadsLeaveNothingBehindAndEachBeginsAnew
    LoadingTest.AnExitHandlerThatIsOlderThanTheLibraryFindsAStateWithoutARoot
    LoadingTest.TwoWorldsOfOneProcessHaveAStateEach
    LoadingTest.AHostInCEndsAtABitmapWhoseRowsAreNegative
    LoadingTest.AHostInCEndsWhenMemoryRunsOut
    LoadingTest.AHostWorksBeforeMainAndAfterItAsItDoesInBetween
    PROPERTIES DISABLED TRUE)

# They play effects, for which the sound library of the emulated system would be needed.
set_tests_properties(
    AudioLimitsTest.AHostShortOfDescriptorsIsRefusedOrHeardAndLosesNone
    AudioServerTest.AnEffectIsHeard
    AudioServerTest.AnEffectIsHeardWholeWhenTheHostEndsAtOnce
    AudioServerTest.AnEffectPlayedAgainDoesNotCutTheFirst
    AudioServerTest.AnEffectWhosePathIsNotUtf8IsHeard
    AudioServerTest.AChangedEffectIsHeardAsItIsNow
    AudioServerTest.ARestartedServerIsFoundAgain
    AudioServerTest.RefusedEffectsAreSilentAndLeaveNoDescriptorOpen
    AudioServerTest.TheSoundServiceLeavesNothingBehindThatAPlayerCouldGet
    AudioServerTest.TheSoundServiceLeavesNoThreadInTheHost
    AudioServerTest.AHostWithoutStandardStreamsIsHeardAndKeepsThemClosed
    AudioServerTest.AChildForkedAfterASoundIsRefusedAtOnce
    AudioServerTest.TheExampleBeepsAScaleRingsABellAndStopsItsMusic
    PROPERTIES DISABLED TRUE)

# They limit the memory of a process. The emulator does not pass that on, lest it be hit itself.
set_tests_properties(
    ExtremeCanvasTest.ASizeIsNullOrACanvasOrMoreThanThereIsMemory
    ExtremeCanvasTest.MorePixelsThanMemoryAreAFailureAfterWhichTheHostGoesOn
    PROPERTIES DISABLED TRUE)
