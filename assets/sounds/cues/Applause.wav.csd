<CsoundSynthesizer>
; A class claps, and cheers: some near, many further off.
<CsInstruments>
#include "studio.inc"
seed 13

; Some pairs of hands, each clapping at its own pace. p4 how many, p5 claps a second, p6 seconds within which they join
; in, p7 Hz of a clap, p8 octaves by which hands differ, p9 attack and p10 ring of a clap, p11 level, p12 seconds in
; which the clapping ebbs away
instr Hands
  iPair = 0
  while iPair < p4 do
    iHz = p7 * 2 ^ random:i(-p8, p8)
    iNear = random:i(0.35, 1)
    iBeat = 1 / (p5 * random:i(0.85, 1.15))
    iNow = random:i(0, p6) + random:i(0, iBeat)
    while iNow < p3 - p10 do
      iEbb = 0.5 - 0.5 * cos($M_PI * limit:i((p3 - iNow) / p12, 0, 1))
      schedule "Clap", iNow, p10, iHz, p9, p11 * iEbb * iNear * random:i(0.6, 1)
      iNow += iBeat * random:i(0.9, 1.1)  ; nobody keeps time
    od
    iPair += 1
  od
  turnoff
endin

instr Clap  ; p4 Hz, p5 attack, p6 level
  gaStage += p6 * Hiss(p4, 1.2) * cosseg:a(0, p5, 1, p3 - p5 - 0.004, 1, 0.004, 0) * expon:a(1, p3, 0.001)
endin

; p4 how many children, p5 seconds within which they join in, p6 level
instr Cheer
  iChild = 0
  while iChild < p4 do
    schedule "Child", random:i(0, p5), p3, 2 ^ random:i(-0.28, 0.28), random:i(0.9, 1.12), p6 * random:i(0.35, 1)
    iChild += 1
  od
  turnoff
endin

; "Yeay": the mouth opens from a smile and goes back to it. p4 how high and p5 how small this child is beside the others
instr Child
  kHz = p4 * expseg:k(330, p3 / 3, 440, p3 / 3, 430, p3 / 3, 300) * (1 + randi:k(0.02, 12, random:i(0, 1)))
  ;                      gravel level
  aVoice  = Formant(kHz, 0.02, 1,    380 / p5,  620 / p5,  680 / p5,  420 / p5)
  aVoice += Formant(kHz, 0.02, 0.25, 2700 / p5, 2350 / p5, 2250 / p5, 2700 / p5)
  aVoice += Formant(kHz, 0.02, 0.16, 3500 / p5, 3300 / p5, 3300 / p5, 3500 / p5)
  aVoice += Formant(kHz, 0.02, 0.05, 4600 / p5, 4600 / p5, 4600 / p5, 4600 / p5)
  aBreath = 0.1 * Hiss(2900 / p5, 0.8)
  gaStage += p6 * (aVoice + aBreath) * cosseg:a(0, 0.12, 1, p3 - 0.52, 1, 0.4, 0)
endin
</CsInstruments>
<CsScore>
;         start length pairs rate join  Hz    vary  attack ring   level ebb
i "Hands" 0     3.2    9     4.4  0.06  1500  0.55  0.0008 0.034  1.9   1.1
i "Hands" 0     3.2    22    4.7  0.20  1900  0.50  0.0015 0.045  1.0   1.0
i "Hands" 0     3.2    14    4.0  0.25  750   0.35  0.0015 0.050  0.9   0.9
;                      children   join  level
i "Cheer" 0.08  1.2    14         0.35  0.03
;                      echoes     size  fade
i "Room"  0     3.2    0.35       0.06  0.6
</CsScore>
</CsoundSynthesizer>
