// The amplitude/duration plot of one level in both kinds of document, 960 by 960 device units on a
// screen of 96 dots per inch: two decades from 1 ms, and two ticks of 1 pA.
#pragma once

namespace ondrel {

/// Lines end in CR and LF.
inline constexpr char kScatterInIllustrator[] = R"(%!PS-Adobe-2.0 EPSF-1.2
%%DocumentProcSets: Adobe_Illustrator_1.1 0 0
%%BoundingBox: 0 0 960 960
%%TemplateBox: 0 0 960 960
%%EndComments
%%EndProlog
0.000 0.000 0.000 1.000 k
/_Helvetica 10 10 0 0 z
[1 0 0 1 360.000 22.857]e
16(log Duration (s))t
T
0.000 0.000 0.000 1.000 K
120.000 160.000 m
840.000 160.000 l
0.25 w
S
120.000 160.000 m
120.000 140.000 l
0.25 w
S
120.000 160.000 m
120.000 147.200 l
0.25 w
S
0.000 0.000 0.000 1.000 k
/_Helvetica 10 10 0 0 z
[1 0 0 1 120.000 96.000]e
2(-3)t
T
0.000 0.000 0.000 1.000 K
480.000 160.000 m
480.000 140.000 l
0.25 w
S
480.000 160.000 m
480.000 147.200 l
0.25 w
S
0.000 0.000 0.000 1.000 k
/_Helvetica 10 10 0 0 z
[1 0 0 1 480.000 96.000]e
2(-2)t
T
0.000 0.000 0.000 1.000 K
840.000 160.000 m
840.000 140.000 l
0.25 w
S
840.000 160.000 m
840.000 147.200 l
0.25 w
S
0.000 0.000 0.000 1.000 k
/_Helvetica 10 10 0 0 z
[1 0 0 1 840.000 96.000]e
2(-1)t
T
/_Helvetica 10 10 0 0 z
[1 0 0 1 60.000 864.000]e
14(Amplitude (pA))t
T
0.000 0.000 0.000 1.000 K
120.000 800.000 m
120.000 160.000 l
0.25 w
S
120.000 160.000 m
100.000 160.000 l
0.25 w
S
0.000 0.000 0.000 1.000 k
/_Helvetica 10 10 0 2 z
[1 0 0 1 92.571 160.000]e
3(0.0)t
T
0.000 0.000 0.000 1.000 K
120.000 480.000 m
100.000 480.000 l
0.25 w
S
0.000 0.000 0.000 1.000 k
/_Helvetica 10 10 0 2 z
[1 0 0 1 92.571 480.000]e
3(1.0)t
T
0.000 1.000 1.000 0.000 k
479.000 481.000 m
481.000 481.000 l
481.000 479.000 l
479.000 479.000 l
479.000 481.000 l
F
%%Trailer
)";

inline constexpr char kScatterInEps[] = R"(%!PS-Adobe-3.0 EPSF-3.0
%%BoundingBox: 0 0 720 720
%%EndComments
%%EndProlog
30 30 translate
/right_show {
  dup
  stringwidth pop
  4 -1 roll exch sub
  3 -1 roll moveto
  show
} def
0.000 0.000 0.000 1.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
270.000 17.143 moveto
(log Duration (s)) show
0.000 0.000 0.000 1.000 setcmykcolor
90.000 120.000 moveto
630.000 120.000 lineto
0.25 setlinewidth
stroke
90.000 120.000 moveto
90.000 105.000 lineto
0.25 setlinewidth
stroke
90.000 120.000 moveto
90.000 110.400 lineto
0.25 setlinewidth
stroke
0.000 0.000 0.000 1.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
90.000 72.000 moveto
(-3) show
0.000 0.000 0.000 1.000 setcmykcolor
360.000 120.000 moveto
360.000 105.000 lineto
0.25 setlinewidth
stroke
360.000 120.000 moveto
360.000 110.400 lineto
0.25 setlinewidth
stroke
0.000 0.000 0.000 1.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
360.000 72.000 moveto
(-2) show
0.000 0.000 0.000 1.000 setcmykcolor
630.000 120.000 moveto
630.000 105.000 lineto
0.25 setlinewidth
stroke
630.000 120.000 moveto
630.000 110.400 lineto
0.25 setlinewidth
stroke
0.000 0.000 0.000 1.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
630.000 72.000 moveto
(-1) show
/Helvetica findfont
10 scalefont setfont
45.000 648.000 moveto
(Amplitude (pA)) show
0.000 0.000 0.000 1.000 setcmykcolor
90.000 600.000 moveto
90.000 120.000 lineto
0.25 setlinewidth
stroke
90.000 120.000 moveto
75.000 120.000 lineto
0.25 setlinewidth
stroke
0.000 0.000 0.000 1.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
69.429 120.000
(0.0) right_show
0.000 0.000 0.000 1.000 setcmykcolor
90.000 360.000 moveto
75.000 360.000 lineto
0.25 setlinewidth
stroke
0.000 0.000 0.000 1.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
69.429 360.000
(1.0) right_show
0.000 1.000 1.000 0.000 setcmykcolor
359.250 360.750F
360.750 360.750 lineto
360.750 359.250 lineto
359.250 359.250 lineto
359.250 360.750 lineto
fill
showpage
%%EOF
)";

}  // namespace ondrel
