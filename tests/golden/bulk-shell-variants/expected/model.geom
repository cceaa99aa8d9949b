!------------------------------------------------
! Geometry Definitions
!------------------------------------------------

 Shell Element Definition:
!--- eid      pid         n1         n2         n3         n4
!------------- t1         t2         t3         t4       beta

 Shell Element Definition:
!--- eid      pid         n1         n2         n3         n4
!------------- t1         t2         t3         t4       beta
       4        5          6          7          8          9
        0.000e+00  0.000e+00  0.000e+00  0.000e+00  0.000e+00


