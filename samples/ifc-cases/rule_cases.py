def rule_cases(): return []
def large_cases(): return []
